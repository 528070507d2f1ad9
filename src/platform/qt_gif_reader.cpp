#include "platform/qt_gif_reader.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace apsis {
namespace {

using Byte = std::uint8_t;

// The bytes of a file, read a block at a time.
class Bytes {
  public:
    explicit Bytes(QIODevice& file) : file_(file), buffer_(std::size_t{64} * 1024) {}
    // The next byte; false at the end of the file.
    bool next(Byte& byte) {
        if (at_ == end_) {
            const qint64 got = file_.read(reinterpret_cast<char*>(buffer_.data()),
                                          static_cast<qint64>(buffer_.size()));
            if (got <= 0)
                return false;
            at_ = 0;
            end_ = static_cast<std::size_t>(got);
        }
        byte = buffer_[at_++];
        return true;
    }
    // A number of two bytes, the lower first.
    bool word(int& value) {
        Byte low = 0, high = 0;
        if (!next(low) || !next(high))
            return false;
        value = low | high << 8;
        return true;
    }
    bool skip(int count) {
        Byte ignored = 0;
        for (int i = 0; i < count; ++i) {
            if (!next(ignored))
                return false;
        }
        return true;
    }

  private:
    QIODevice& file_;
    std::vector<Byte> buffer_;
    std::size_t at_ = 0, end_ = 0;
};

// The codes of a picture's data: packed lowest bit first into blocks of at most 255 bytes, each
// after its length, the last followed by an empty one.
class Codes {
  public:
    explicit Codes(Bytes& bytes) : bytes_(bytes) {}
    // The next code of size bits; -1 when the data ends first.
    int next(int size) {
        while (count_ < size) {
            Byte byte = 0;
            if (left_ == 0) {
                if (!bytes_.next(byte) || byte == 0)
                    return -1;
                left_ = byte;
            }
            if (!bytes_.next(byte))
                return -1;
            --left_;
            bits_ |= std::uint32_t{byte} << count_;
            count_ += 8;
        }
        const int code = static_cast<int>(bits_ & ((1u << size) - 1));
        bits_ >>= size;
        count_ -= size;
        return code;
    }

  private:
    Bytes& bytes_;
    int left_ = 0; // bytes left in this block
    std::uint32_t bits_ = 0;
    int count_ = 0; // bits held
};

// The band asked for, made from the picture's lines as they are decoded: each pixel the mean of
// the reduction x reduction pixels it stands for.
class Band {
  public:
    Band(int width, int reduction, int top, int lines, const std::array<QRgb, 256>& colours)
        : image(width, lines, QImage::Format_ARGB32_Premultiplied), reduction_(reduction),
          first_(top * reduction), end_((top + lines) * reduction), colours_(colours),
          sums_(reduction > 1 ? static_cast<std::size_t>(width) * 4 : 0) {}

    // Takes the picture's next line of colour indices; whether the band is then complete.
    bool take(const Byte* indices) {
        const int y = line_++;
        if (y < first_)
            return false;
        const int k = reduction_;
        if (k == 1) {
            auto* out = reinterpret_cast<QRgb*>(image.scanLine(y - first_));
            for (int x = 0; x < image.width(); ++x)
                out[x] = colours_[indices[x]];
            return y + 1 == end_;
        }
        for (std::size_t x = 0, at = 0; x < sums_.size(); x += 4) {
            for (int i = 0; i < k; ++i) {
                const QRgb p = colours_[indices[at++]];
                sums_[x] += p >> 24;
                sums_[x + 1] += (p >> 16) & 0xff;
                sums_[x + 2] += (p >> 8) & 0xff;
                sums_[x + 3] += p & 0xff;
            }
        }
        if ((y - first_) % k == k - 1) {
            auto* out = reinterpret_cast<QRgb*>(image.scanLine((y - first_) / k));
            const auto n = static_cast<std::uint32_t>(k * k);
            for (std::size_t x = 0; x < sums_.size(); x += 4) {
                std::uint32_t pixel = 0;
                for (std::size_t c = 0; c < 4; ++c)
                    pixel = pixel << 8 | (sums_[x + c] + n / 2) / n;
                out[x / 4] = pixel;
            }
            std::fill(sums_.begin(), sums_.end(), 0u);
        }
        return y + 1 == end_;
    }

    QImage image;

  private:
    int reduction_;
    int first_, end_; // the picture's lines the band is made of, the last excluded
    int line_ = 0;    // the picture's lines taken
    const std::array<QRgb, 256>& colours_;
    std::vector<std::uint32_t> sums_; // of the line of the band being made, per channel
};

// Reads a colour table of 2^(n + 1) entries, n the low three bits of flags, into colours.
bool readColours(Bytes& bytes, Byte flags, std::array<QRgb, 256>& colours) {
    colours.fill(0); // indices past the table's end are transparent
    for (int i = 0; i < 2 << (flags & 7); ++i) {
        Byte r = 0, g = 0, b = 0;
        if (!bytes.next(r) || !bytes.next(g) || !bytes.next(b))
            return false;
        colours[static_cast<std::size_t>(i)] = qRgb(r, g, b);
    }
    return true;
}

// Decodes the picture's data, of lines of width pixels, into band until it is complete; whether
// it was.
bool decode(Bytes& bytes, int width, Band& band) {
    Byte minimum = 0;
    if (!bytes.next(minimum) || minimum < 1 || minimum > 8)
        return false;
    // The table of strings: each code's is the string of its prefix's code, then its last
    // index. The first codes are the indices themselves; then the codes that clear the table and
    // end the data.
    constexpr int kCodes = 4096;
    const int clear = 1 << minimum;
    std::vector<std::uint16_t> prefix(kCodes), length(kCodes);
    std::vector<Byte> last(kCodes), first(kCodes);
    for (int c = 0; c < clear; ++c) {
        const auto index = static_cast<std::size_t>(c);
        last[index] = first[index] = static_cast<Byte>(c);
        length[index] = 1;
    }
    // The line being decoded, with room for the longest string past its end.
    std::vector<Byte> indices(static_cast<std::size_t>(width) + kCodes);
    const auto lineWidth = static_cast<std::size_t>(width);
    std::size_t at = 0;
    Codes codes(bytes);
    int size = minimum + 1;
    int next = clear + 2;
    int previous = -1;
    for (;;) {
        const int code = codes.next(size);
        if (code < 0 || code == clear + 1)
            return false; // the data ends before the band does
        if (code == clear) {
            size = minimum + 1;
            next = clear + 2;
            previous = -1;
            continue;
        }
        if (previous < 0 ? code > clear : code > next)
            return false; // a code not yet in the table
        if (previous >= 0 && next < kCodes) {
            // The previous string and the first index of this one, which is the previous
            // string's own first when this code is the one being made.
            const auto n = static_cast<std::size_t>(next);
            const auto p = static_cast<std::size_t>(previous);
            prefix[n] = static_cast<std::uint16_t>(previous);
            last[n] = first[static_cast<std::size_t>(code == next ? previous : code)];
            first[n] = first[p];
            length[n] = static_cast<std::uint16_t>(length[p] + 1);
            ++next;
            if (next == 1 << size && size < 12)
                ++size;
        }
        // The string, written from its end back along its prefixes.
        std::size_t c = static_cast<std::size_t>(code);
        const std::size_t end = at + length[c];
        for (std::size_t i = end; i-- > at; c = prefix[c])
            indices[i] = last[c];
        at = end;
        previous = code;
        while (at >= lineWidth) {
            if (band.take(indices.data()))
                return true;
            std::memmove(indices.data(), indices.data() + lineWidth, at - lineWidth);
            at -= lineWidth;
        }
    }
}

} // namespace

GifLines readGifLines(QIODevice& file, QSize own, QSize size, int top, int lines) {
    GifLines result;
    const QByteArray start = file.peek(6);
    const bool whole = !size.isEmpty() && own.width() % size.width() == 0 &&
                       own.height() % size.height() == 0 &&
                       own.width() / size.width() == own.height() / size.height();
    if ((start != "GIF87a" && start != "GIF89a") || !whole) {
        result.unusual = true;
        return result;
    }
    if (top < 0 || lines < 1 || top + lines > size.height())
        return result;
    Bytes bytes(file);
    int width = 0, height = 0;
    Byte flags = 0;
    std::array<QRgb, 256> colours{};
    if (!bytes.skip(6) || !bytes.word(width) || !bytes.word(height) || !bytes.next(flags) ||
        !bytes.skip(2) || QSize(width, height) != own)
        return result;
    if ((flags & 0x80) != 0 && !readColours(bytes, flags, colours))
        return result;
    int transparent = -1;
    for (;;) {
        Byte block = 0, label = 0, length = 0;
        if (!bytes.next(block))
            return result;
        if (block == 0x2c)
            break; // the first picture
        if (block != 0x21 || !bytes.next(label))
            return result; // the file ends, or is no GIF past this point
        // An extension's blocks; of them, only the one that names the transparent index.
        for (;;) {
            if (!bytes.next(length))
                return result;
            if (length == 0)
                break;
            Byte control = 0, index = 0;
            if (label == 0xf9 && length >= 4) {
                if (!bytes.next(control) || !bytes.skip(2) || !bytes.next(index) ||
                    !bytes.skip(length - 4))
                    return result;
                transparent = (control & 1) != 0 ? index : -1;
            } else if (!bytes.skip(length)) {
                return result;
            }
        }
    }
    int left = 0, up = 0;
    if (!bytes.word(left) || !bytes.word(up) || !bytes.word(width) || !bytes.word(height) ||
        !bytes.next(flags))
        return result;
    if (left != 0 || up != 0 || QSize(width, height) != own || (flags & 0x40) != 0) {
        result.unusual = true; // left to Qt's reader, which is to read the file from its start
        return result;
    }
    if ((flags & 0x80) != 0 && !readColours(bytes, flags, colours))
        return result;
    if (transparent >= 0)
        colours[static_cast<std::size_t>(transparent)] = 0;
    Band band(size.width(), own.width() / size.width(), top, lines, colours);
    if (!band.image.isNull() && decode(bytes, own.width(), band))
        result.image = std::move(band.image);
    return result;
}

} // namespace apsis
