// One import and one export of each kind of object, as a table.
#pragma once

#include "host/zeio/IoExportFilter.h"
#include "host/zeio/TrObjects.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace fault_test {

using Objects = std::vector<std::unique_ptr<zeio::TrBase>>;

struct ImportRow {
    std::string name;
    std::string objects;  // the DATA section: one object with every clause it can have
};
std::ostream& operator<<(std::ostream& out, const ImportRow& row);
const std::vector<ImportRow>& ImportRows();

// A whole file with the section in it: a coordinate system, bounds and two columns.
std::string MifWith(const std::string& objects);

// The rows of the .mid file beside it, more than any section has objects.
std::string MidRows();

struct ExportRow {
    std::string name;
    Objects (*make)();  // styles, columns and a system, then the graphic object
};
std::ostream& operator<<(std::ostream& out, const ExportRow& row);
const std::vector<ExportRow>& ExportRows();

// A whole export of the objects to a path.
void ExportAll(zeio::IoExportFilter& filter, const std::wstring& path, const Objects& objects);

// Every kind of object in one drawing.
Objects WholeDrawing();

}  // namespace fault_test
