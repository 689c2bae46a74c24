#pragma once
// The application object: start-up, the pipeline, and the cycle of menu, assembly, link, run and dumps.

#include "messages/TMsgBase.h"

namespace tolvane {

class TGame : public TMsgBase {
public:
    // Start-up, then the pipeline's cycle until the user exits or the input ends.
    void Run();

private:
    void StartUp();
    void RunPipeline(const Pipeline& pipeline);
    void StartPipeline(const Pipeline& pipeline);
    void DspTitle() const;

    // One cycle. False when the user has chosen to exit.
    bool Cycle();
    void DspErrors() const;
    int GetSrcFile();
    void DspWarningKazu() const;
    bool AssembleLinkRun();
    // Asks whether to run a program with warnings. 1 to run, another number not to; `ended` at the end of the input.
    int AskToRun(bool& ended) const;
    void RunMachine();

    bool toldAssembledDump = false;
    bool toldResultantDump = false;
};

} // namespace tolvane
