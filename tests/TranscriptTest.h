#pragma once

namespace tolvane::tests {

// Makes a test of every file of tests/transcripts/.
void RegisterTranscripts(bool rewrite);

} // namespace tolvane::tests
