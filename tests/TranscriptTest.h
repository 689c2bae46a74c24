#pragma once

namespace tolvane::tests {

// Makes a test of every run of every case in tests/transcripts/<room>/<case>/.
void RegisterTranscripts(bool rewrite);

} // namespace tolvane::tests
