#include "support/golden.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <utility>
#include <vector>

namespace apsis {
namespace {

// A long line (a path) shown around the column where it first differs.
std::string around(const std::string& line, std::size_t column) {
    const std::size_t from = line.size() <= 160 || column < 60 ? 0 : column - 60;
    const std::size_t length = line.size() <= 160 ? line.size() : 120;
    return (from > 0 ? "..." : "") + line.substr(from, length) +
           (from + length < line.size() ? "..." : "");
}

// Where the golden file and the text first part, with the three lines before.
std::string shortDiff(const std::string& expected, const std::string& actual) {
    std::vector<std::string> want, got;
    for (auto [text, lines] : {std::pair{&expected, &want}, {&actual, &got}}) {
        std::istringstream in(*text);
        for (std::string line; std::getline(in, line);)
            lines->push_back(line);
    }
    std::size_t at = 0;
    while (at < want.size() && at < got.size() && want[at] == got[at])
        ++at;
    const std::string a = at < want.size() ? want[at] : "(the end)";
    const std::string b = at < got.size() ? got[at] : "(the end)";
    std::size_t column = 0;
    while (column < a.size() && column < b.size() && a[column] == b[column])
        ++column;
    std::ostringstream out;
    out << " differs from what the test made, first at line " << at + 1 << ":\n";
    for (std::size_t i = at > 3 ? at - 3 : 0; i < at; ++i)
        out << "    " << i + 1 << ": " << around(want[i], 0) << '\n';
    out << "  - " << at + 1 << ": " << around(a, column) << "   (the golden file)\n"
        << "  + " << at + 1 << ": " << around(b, column) << "   (now)\n";
    return out.str();
}

// A drawn number: rounded to a hundredth, without trailing zeros.
std::string hundredths(double v) {
    if (std::isnan(v))
        return "nan";
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.2f", std::round(v * 100) / 100);
    std::string text = buffer;
    while (text.find('.') != std::string::npos && (text.back() == '0' || text.back() == '.'))
        text.pop_back();
    return text == "-0" ? "0" : text;
}

} // namespace

void expectMatchesGolden(const std::string& name, const std::string& text) {
    const std::string shown = "tests/golden/" + name + ".txt";
    const std::filesystem::path path = std::filesystem::path(APSIS_GOLDEN_DIR) / (name + ".txt");
    if (const char* update = std::getenv("APSIS_UPDATE_GOLDEN");
        update && update == std::string("1")) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        std::cout << "[ golden   ] wrote " << shown << '\n';
        return;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        ADD_FAILURE() << "No golden file " << shown
                      << ": run the test with APSIS_UPDATE_GOLDEN=1 to write it, then review it.";
        return;
    }
    std::ostringstream expected;
    expected << in.rdbuf();
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    if (expected.str() != text)
        ADD_FAILURE() << shown << shortDiff(expected.str(), text)
                      << "If the change is meant, pin the new text with\n"
                         "  APSIS_UPDATE_GOLDEN=1 ctest --preset release -R '"
                      << test->test_suite_name() << '.' << test->name()
                      << "'\nand review it in git diff.";
}

std::string callsAsText(const RecordingCanvas& canvas, const FakeResources& files) {
    using Op = RecordingCanvas::Op;
    std::ostringstream out;
    const auto n = [&out](double v) { out << ' ' << hundredths(v); };
    const auto rect = [&n](const Rect& r) { n(r.x), n(r.y), n(r.width), n(r.height); };
    const auto color = [&out](const Color& k) {
        out << " rgba(" << hundredths(k.r) << ',' << hundredths(k.g) << ',' << hundredths(k.b)
            << ',' << hundredths(k.a) << ')';
    };
    const auto text = [&out](const std::string& t) {
        out << " \"";
        for (const char ch : t)
            out << (ch == '\n' ? "\\n" : ch == '"' ? "\\\"" : std::string(1, ch));
        out << '"';
    };
    const auto style = [&](const TextStyle& s) {
        static const char* const kFamilies[] = {"Courier", "Times", "Copperplate", "Label"};
        out << ' ' << kFamilies[static_cast<int>(s.family)], n(s.size), color(s.color);
        if (s.background)
            out << " on", color(*s.background);
    };
    static const char* const kOps[] = {"fillRect",    "strokePath", "fillPath",
                                       "drawPicture", "drawText",   "textInRect"};
    for (const RecordingCanvas::Call& c : canvas.calls) {
        out << kOps[static_cast<int>(c.op)];
        if (c.op == Op::FillRect)
            rect(c.rect), color(c.color);
        if (c.op == Op::StrokePath || c.op == Op::FillPath)
            color(c.color);
        for (const Path::Element& e : c.path.elements) { // Move, Line, Oval, Rectangle
            out << ' ' << "MLOR"[static_cast<int>(e.kind)], n(e.rect.x), n(e.rect.y);
            if (e.kind == Path::Kind::Oval || e.kind == Path::Kind::Rectangle)
                n(e.rect.width), n(e.rect.height);
        }
        if (c.op == Op::DrawPicture) {
            std::string name = "(unknown picture)";
            for (const auto& [file, picture] : files.pictures)
                name = picture.get() == c.picture ? file : name;
            out << ' ' << name;
            out << " src", rect(c.source), out << " dst", rect(c.rect), out << " opacity",
                n(c.opacity);
        }
        if (c.op == Op::DrawText)
            text(c.text), out << " at", n(c.at.x), n(c.at.y), style(c.style);
        if (c.op == Op::TextInRect)
            text(c.text), out << " in", rect(c.rect), style(c.style);
        out << '\n';
    }
    return out.str();
}

bool isAddedTo(const std::string& base, const std::string& over) {
    std::size_t from = 0;
    for (std::size_t line = 0; line < base.size();) {
        const std::size_t end = base.find('\n', line);
        const std::string call = base.substr(line, end - line + 1);
        std::size_t at = over.find(call, from);
        while (at != std::string::npos && at > 0 && over[at - 1] != '\n')
            at = over.find(call, at + 1); // a whole line of over, not the end of one
        if (at == std::string::npos)
            return false;
        from = at + call.size();
        line = end == std::string::npos ? base.size() : end + 1;
    }
    return true;
}

} // namespace apsis
