#pragma once

namespace tolvane::run {

// The image as hexadecimal words beside the source lines, on the standard error. After the link.
void ListWords();

} // namespace tolvane::run
