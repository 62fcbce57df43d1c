// A MIF/MID pair made ready for reading, as its author meant it.
//
// One pass over both files finds what the module needs in place of the .mif file (ModuleCopy), and
// what the module can't carry (FactStore). The rows of the .mid file are read beside the import, by
// RowReader.
#pragma once

#include "app/mif/FactStore.h"
#include "app/mif/ModuleCopy.h"
#include "app/mif/PairPass.h"

#include <filesystem>

namespace app {

class PairReading {
public:
    // Passes over the files. Throws Failure as PassPair, and when the temporary folder has no room.
    explicit PairReading(const std::filesystem::path& mif);

    const PassedPair& Pair() const { return pair_; }

    // Whether each member of a collection has a row of its own, and whether lines that look like an
    // object have one. By the format each object has one row; the number of rows tells.
    bool HasRowPerMember() const;
    bool HasRowForSkipped() const;

    FactStore& Facts() { return facts_; }
    const ModuleCopy& Copy() const { return copy_; }

private:
    class Recorder;

    FactStore facts_;
    ModuleCopy copy_;
    PassedPair pair_;
};

}  // namespace app
