#pragma once
// The standard error of tolvane-run: diagnostics in the form that editors read, one head each.
//
//   FILE:LINE: error: TEXT
//     further lines

#include "messages/TMsgStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvane::run {

// Appends to the buffer of the standard error, which is written out when it is large. Control characters are shown as
// "^X": the lines may reach a terminal, now or later.
void WriteErr(std::string_view utf8);
void FlushErr();

// The lines of a diagnostic without the heads of its row, which the form's own head replaces.
std::vector<std::string> TextLines(const MsgRec& record);
// One diagnostic; `line` is zero-based, below 0 without one.
void PrintDiagnostic(const std::string& file, int line, Severity severity, const std::vector<std::string>& lines);

} // namespace tolvane::run
