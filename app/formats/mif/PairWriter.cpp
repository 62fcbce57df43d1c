#include "app/formats/mif/PairWriter.h"

#include "app/formats/mif/ColumnNames.h"
#include "app/formats/mif/RowRecoder.h"

#include <algorithm>
#include <utility>

namespace app {
namespace {

// The end of the last whole character.
std::size_t EndOfCharacters(std::string_view utf8) {
    const auto at = std::find_if(utf8.rbegin(), utf8.rend(),
                                 [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return static_cast<std::size_t>(utf8.rend() - at);
}

}  // namespace

PairWriter::PairWriter(const std::filesystem::path& mifPath, IfExists ifExists)
    : pair_(mifPath, ifExists), mif_(pair_.WorkPath(), pair_.SparePath(), mifPath),
      mid_(pair_.WorkMidPath(), pair_.SparePath(), pair_.MidPath()) {}

void PairWriter::Begin(PairLayer layer) {
    layer_ = std::move(layer);
    charset_ = std::move(layer_.charset);
    if (!charset_) {
        charset_.emplace();
    }
    isNumbered_ = layer_.columns.empty();
    if (isNumbered_) {
        layer_.columns = {{.name = "ID", .kind = ColumnKind::Integer}};
    }
    const std::vector<std::string> names = ColumnNamesFor(layer_.columns, charset_->Encoder());
    PairHeader most{.charset = std::string(charset_->Name()),
                    .coordSys = layer_.coordSys,
                    .boundsPlace = layer_.boundsPlace,
                    .columns = layer_.columns};
    for (std::size_t i = 0; i < names.size(); ++i) {
        layer_.columns[i].name = names[i];
        std::string bytes;
        charset_->Append(bytes, names[i]);  // the charset must have all of them
        most.columns[i].name = bytes;
    }
    headerBytes_ = MostHeaderBytes(most);
    // As many lines as the header that takes its place: in text mode a line end may be two bytes.
    mif_.Buffer() += HeaderText(most, headerBytes_);
    objects_.emplace(layer_.objects, *charset_);
    rows_.emplace(layer_.columns, layer_.rows, *charset_);
}

void PairWriter::Write(const Feature& feature) {
    if (!objects_->Wants(feature)) {
        return;
    }
    ++rowCount_;
    const std::uint64_t before = charset_->TextCount();
    objects_->Append(mif_.Buffer(), feature);
    const std::uint64_t between = charset_->TextCount();
    if (isNumbered_) {
        const Value number = rowCount_;
        rows_->Append(mid_.Buffer(), {&number, 1});
    } else {
        rows_->Append(mid_.Buffer(), feature.values);
    }
    hasObjectTexts_ = hasObjectTexts_ || between != before;
    hasRowTexts_ = hasRowTexts_ || charset_->TextCount() != between;
    mif_.Write();
    mid_.Write();
}

void PairWriter::RecodeObjects() {
    mif_.Rewrite(headerBytes_, [this](std::string_view utf8, std::string& out) {
        const std::size_t length = EndOfCharacters(utf8);
        charset_->Encoder().Append(out, utf8.substr(0, length));
        return length;
    });
}

void PairWriter::RecodeRows() {
    rows_->ForgetTexts();
    RowRecoder recoder(*rows_, layer_.rows.delimiter);
    mid_.Rewrite(0, [&recoder](std::string_view rows, std::string& out) {
        recoder.Recode(rows, out);
        return rows.size();
    });
}

PairHeader PairWriter::FinalHeader(const std::vector<ColumnOutcome>& columns) {
    PairHeader header{.version = std::max(layer_.version, objects_->Version()),
                      .charset = std::string(charset_->Name()),
                      .delimiter = layer_.rows.delimiter,
                      .coordSys = layer_.coordSys,
                      .boundsPlace = layer_.boundsPlace,
                      .bounds = objects_->Bounds()};
    for (const ColumnOutcome& outcome : columns) {
        header.version = std::max(header.version, VersionOf(outcome.column.kind));
        LayerColumn& column = header.columns.emplace_back(outcome.column);
        column.name.clear();
        charset_->Append(column.name, outcome.column.name);
    }
    return header;
}

PairOutcome PairWriter::Finish() {
    const bool isInCharset = charset_->Settle();
    if (!isInCharset && hasObjectTexts_) {
        RecodeObjects();
    }
    if ((!isInCharset && hasRowTexts_) || rows_->HasTooLongText()) {
        RecodeRows();
    }
    PairOutcome outcome{.columns = rows_->Outcomes(), .unplacedObjects = objects_->UnplacedCount()};
    mif_.Finish(HeaderText(FinalHeader(outcome.columns), headerBytes_));
    mid_.Finish({});
    outcome.charset = charset_->Name();
    outcome.lostCharacters = charset_->LostCount();
    pair_.Finish();
    return outcome;
}

}  // namespace app
