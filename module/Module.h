// The two functions that the module exports.
//
// Each returns a new filter bound to the manager, which must outlive it, or null when there is no
// memory. The caller owns the filter and deletes it through its virtual destructor; the module
// keeps no pointer to it. An exception from a filter's constructor passes.
#pragma once

namespace zeio {
class IoExportFilter;
class IoImportFilter;
class IoManager;
}  // namespace zeio

extern "C" {

zeio::IoImportFilter* ImportMIF(zeio::IoManager& manager);
zeio::IoExportFilter* ExportMIF(zeio::IoManager& manager);

}  // extern "C"
