// Joins what the module hands over with what was found out about the pair: features as their author
// meant them.
#pragma once

#include "app/feature/Feature.h"
#include "app/feature/Source.h"
#include "app/formats/mif/ReadClauses.h"
#include "app/mif/FactStore.h"
#include "app/mif/PairReading.h"
#include "app/mif/RowReader.h"
#include "host/zeio/TrObjects.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace app {

class PairFeatures {
public:
    // `reading` must outlive the features, and `rows` too; null for a pair without rows. Every
    // feature goes to the sink.
    PairFeatures(PairReading& reading, std::vector<LayerColumn> columns, RowReader* rows,
                 const FeatureSink& sink);

    // Takes the objects that come before the module's first one. Call it once, before the import.
    // False when the sink has enough; then nothing more may be taken.
    bool Begin() { return Advance(); }

    // Takes an object of the import. False when the sink has enough. Throws Failure when the module
    // hands over an object that the file does not have.
    bool Take(zeio::TrBase& object);

    // Called behind the last object. Throws Failure when the module has left objects out.
    void Finish() const;

    // Objects whose row is missing.
    std::uint64_t WithoutRow() const { return withoutRow_; }

private:
    bool Advance();
    bool Emit();
    void StartObject();
    bool FillOwnUnits();
    const ObjectFacts& Unit() const;
    Geometry& UnitGeometry();
    std::size_t UnitCount() const;
    void FinishUnit();
    void TakeRow();

    PairReading& reading_;
    std::vector<LayerColumn> columns_;
    RowReader* rows_;
    const FeatureSink& sink_;
    FactStore::Reader facts_;
    ClauseReader clauses_;
    bool hasRowPerMember_;
    bool hasRowForSkipped_;

    const ObjectFacts* object_ = nullptr;  // being read; null behind the last one
    Feature feature_;
    std::size_t unit_ = 0;       // of the object: itself, or its members one after the other
    std::uint64_t missing_ = 0;  // objects of the module that the unit waits for
    double textHeight_ = 0.0;    // of the module's last font
    std::vector<RowField> fields_;
    std::uint64_t withoutRow_ = 0;
};

}  // namespace app
