// Solutions of exercises, judged as tolvane-run does it.

#include "run/Grading.h"

#include "Engine.h"
#include "messages/ModeFlags.h"
#include "platform/Console.h"
#include "run/Errors.h"
#include "text/Convert.h"

#include <emscripten/bind.h>

namespace tolvane::web {

namespace {

// Prints the verdicts of the cases in the folder, which the page has laid down. Whether all is right.
bool Grade(const std::string& source, const std::string& pipeline, int language, const std::string& folder) {
    run::Options options;
    options.lang = language;
    options.pipeline = FindPipeline(pipeline);
    options.grade = folder;
    modeFlags->Lang = language;
    const int status = run::Grade(options, SourceName, std::string(Utf8Mark) + source);
    run::FlushErr();
    console::Flush();
    return status == run::AllEnded;
}

} // namespace

EMSCRIPTEN_BINDINGS(grading) {
    emscripten::function("grade", &Grade);
}

} // namespace tolvane::web
