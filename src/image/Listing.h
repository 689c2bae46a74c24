#pragma once

#include "image/LinkedImage.h"

namespace tolvane::image {

// The image as hexadecimal words beside the source lines, as UTF-8, a row a line.
std::string ListedWords(const LinkedImage& image);

} // namespace tolvane::image
