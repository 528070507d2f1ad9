#pragma once

#include "support/fake_resources.h"
#include "support/recording_canvas.h"

#include <string>

namespace apsis {

// Compares text with the golden file tests/golden/<name>.txt. A difference fails the test with
// the file's name, the first differing line, a few lines before it and how to pin the new text.
// With APSIS_UPDATE_GOLDEN=1 in the environment the file is written instead.
void expectMatchesGolden(const std::string& name, const std::string& text);

// The recorded calls, one a line, numbers to a hundredth, pictures by their file name.
std::string callsAsText(const RecordingCanvas& canvas, const FakeResources& files);

// Whether every line of base comes in over as a whole line, in the same order: what over draws
// adds to base and changes nothing of it.
bool isAddedTo(const std::string& base, const std::string& over);

} // namespace apsis
