#pragma once
// What is sound in a linked image but probably not meant.

#include "image/LinkedImage.h"
#include "messages/Msg.h"

#include <string>
#include <vector>

namespace tolvane::hints {

struct Hint {
    int line; // from 0
    const Msg* row;
    std::string text; // in the language that is set
};

// The hints of an image in the order of its lines; in front of the run.
std::vector<Hint> HintsOf(const image::LinkedImage& image);

} // namespace tolvane::hints
