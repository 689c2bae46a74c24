#include "messages/Pipeline.h"

#include <array>

namespace tolvane {

namespace {

constexpr Pipeline WideBase(const char* name) {
    return Pipeline{
        .name = name,
        .wording = WordingNWW,
        .text = TextKind::Wide,
        .reader = Reader::Wide,
        .printsOperandsAtOnce = true,
        .printsQueue = false,
        .silentShortensMenu = true,
        .normalising = Normalising::editNWB,
        .boundaryEndsInBlank = false,
        .tellsZenSpaceInOp = true,
        .trimTellsUnknownOp = false,
        .hasExit = false,
        .analysis = Analysis::Vectors,
        .firstLabelCharCounts = false,
        .explainsOpenLiteral = false,
        .refusesLabelAlone = false,
        .dcDsHavePasses = false,
        .oprndLimit = 225,
        .refusesLeadSemicolon = false,
        .commaPass = false,
        .ld2LooksFirst = false,
        .regXDoubleComma = false,
        .srl2OwnForm = false,
        .startNamesProgram = true,
        .startAnalystZenKaku = false,
        .dcTextBehindBlank = true,
        .buildsLineOfWord = true,
        .maxMemory = 65000,
        .storeGuard = 65000,
        .storeLimit = 65000,
        .clearsRunCount = true,
        .dump = Dump::DspRegMry70,
        .dumpsRunCount = true,
        .dumpsLabelSpace = false,
        .limits = {},
    };
}

constexpr Pipeline NarrowBase(const char* name, Wording wording) {
    Pipeline p = WideBase(name);
    p.wording = wording;
    p.text = TextKind::Narrow;
    p.reader = Reader::Narrow;
    p.trimTellsUnknownOp = true;
    p.firstLabelCharCounts = true;
    p.startNamesProgram = false;
    p.dcTextBehindBlank = false;
    p.buildsLineOfWord = false;
    p.dump = Dump::DspRegMry68;
    return p;
}

constexpr Pipeline MakeWP() {
    Pipeline p = WideBase("WP");
    p.wording = WordingWP;
    p.printsOperandsAtOnce = false;
    p.printsQueue = true;
    p.oprndLimit = 0;
    p.commaPass = true;
    p.ld2LooksFirst = true;
    p.regXDoubleComma = true;
    p.startAnalystZenKaku = true;
    return p;
}

constexpr Pipeline MakeNaW() {
    Pipeline p = WideBase("NaW");
    p.reader = Reader::Widened;
    p.printsQueue = true;
    return p;
}

constexpr Pipeline MakeNA() {
    Pipeline p = NarrowBase("NA", WordingNA);
    p.refusesLeadSemicolon = true;
    return p;
}

constexpr Pipeline MakeAP() {
    Pipeline p = NarrowBase("AP", WordingAP);
    p.oprndLimit = 0;
    p.commaPass = true;
    p.srl2OwnForm = true;
    p.startAnalystZenKaku = true;
    return p;
}

constexpr Pipeline MakeNH() {
    Pipeline p = NarrowBase("NH", WordingNH);
    p.reader = Reader::Array;
    p.firstLabelCharCounts = false;
    p.dcTextBehindBlank = true;
    p.maxMemory = 3500;
    p.storeGuard = 3501;
    p.storeLimit = 3500;
    p.clearsRunCount = false;
    p.dumpsRunCount = false;
    p.silentShortensMenu = false;
    p.normalising = Normalising::editN;
    p.boundaryEndsInBlank = true;
    p.tellsZenSpaceInOp = false;
    p.trimTellsUnknownOp = false;
    p.hasExit = true;
    p.analysis = Analysis::Tables;
    p.explainsOpenLiteral = true;
    p.refusesLabelAlone = true;
    p.dcDsHavePasses = true;
    p.dumpsLabelSpace = true;
    p.limits = {.lines = 310,
                .lineLength = 80,
                .opLength = 5,
                .dcConstants = 20,
                .dcdsLines = 55,
                .dcdsWords = 3500,
                .literalWords = 300,
                .imageWords = 3500};
    return p;
}

constexpr std::array<Pipeline, 7> Pipelines = {
    WideBase("NWW"), WideBase("NwW"), MakeWP(), MakeNaW(), MakeNA(), MakeAP(), MakeNH(),
};

} // namespace

const Pipeline* FindPipeline(const std::string& fightFunc) {
    for (const Pipeline& p : Pipelines)
        if (fightFunc == p.name) return &p;
    return nullptr;
}

const Pipeline& DefaultPipeline() {
    return Pipelines[0];
}

bool IsGivenUp(const std::string& fightFunc) {
    return fightFunc == "NewChH" || fightFunc == "NewChWH";
}

} // namespace tolvane
