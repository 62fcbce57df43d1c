// Writes features to a pair of .mif and .mid in one pass.
//
// What is known only at the end, version, bounds, column types and mostly the charset, is written
// over the header's place then. Rows and objects are written a second time only when a text needed
// another charset than UTF-8 that wasn't given at the start, or was longer than a column holds.
#pragma once

#include "app/base/Output.h"
#include "app/formats/mif/ObjectWriter.h"
#include "app/formats/mif/PairCharset.h"
#include "app/formats/mif/PairFile.h"
#include "app/formats/mif/PairHeader.h"
#include "app/formats/mif/RowWriter.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

// What a pair is before its first feature.
struct PairLayer {
    std::vector<LayerColumn> columns;    // without any, the pair gets a column that counts its rows
    std::optional<PairCharset> charset;  // absent: the smallest that has all texts
    RowForm rows;
    std::string coordSys;  // as in PairHeader
    BoundsPlace boundsPlace = BoundsPlace::Nowhere;
    int version = 300;  // the lowest that has the clause
    ObjectChoices objects;
};

// What the pair has become.
struct PairOutcome {
    std::string charset = {};                 // in the header
    std::vector<ColumnOutcome> columns = {};  // with their names in the file, UTF-8
    std::uint64_t lostCharacters = 0;         // that became '?'
    std::uint64_t unplacedObjects =
        0;  // that became None for a coordinate that is not a finite number
};

// Begin, Write every feature, Finish. Without Finish nothing is left. All throw Failure.
class PairWriter {
public:
    PairWriter(const std::filesystem::path& mifPath, IfExists ifExists);

    void Begin(PairLayer layer);
    void Write(const Feature& feature);

    // Completes the files and moves them into place.
    PairOutcome Finish();

private:
    void RecodeObjects();
    void RecodeRows();
    PairHeader FinalHeader(const std::vector<ColumnOutcome>& columns);

    OutputPair pair_;
    PairFile mif_;
    PairFile mid_;
    PairLayer layer_;
    std::optional<PairCharset> charset_;  // absent before Begin, as the next ones
    std::optional<ObjectWriter> objects_;
    std::optional<RowWriter> rows_;
    std::size_t headerBytes_ = 0;
    bool isNumbered_ = false;  // the layer has no columns of its own
    std::int64_t rowCount_ = 0;
    bool hasObjectTexts_ = false;  // beyond ASCII
    bool hasRowTexts_ = false;
};

}  // namespace app
