#pragma once
// The application object: start-up, the pipeline, and the cycle of menu, assembly, link, run and dumps.

#include "machine/Tcomet2.h"
#include "messages/TMsgBase.h"

namespace tolvane {

class TGame : public TMsgBase {
public:
    // Start-up, then the pipeline's cycle until the user exits, the input ends or a running program has been stopped.
    // The exit status.
    int Run();

private:
    void StartAndRun();
    void StartUp();
    void RunPipeline(const Pipeline& pipeline);
    void StartPipeline(const Pipeline& pipeline);
    void DspTitle() const;

    // One cycle. False when the program ends.
    bool Cycle();
    // The same; a source that the memory does not hold is told and forgotten.
    bool CycleInMemory();
    void DspErrors() const;
    int GetSrcFile();
    void DspWarningKazu() const;
    bool AssembleLinkRun();
    // Asks whether to run a program with warnings. 1 to run, another number not to; `ended` at the end of the input.
    int AskToRun(bool& ended) const;
    // False when the simulated program was stopped from outside, which ends this program.
    bool RunMachine();
    void LeaveStopped(Stop stop);

    int exitStatus = 0;
    bool toldAssembledDump = false;
    bool toldResultantDump = false;
};

} // namespace tolvane
