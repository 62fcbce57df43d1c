// The records by which a host recognises the two filters: slot 1 of each.
#include "export/MifExportFilter.h"
#include "host/zeio/FilterIdentity.h"
#include "import/MifImportFilter.h"

namespace mif {

namespace {

constexpr zeio::FilterIdentity IdentityOf(zeio::FilterKind kind) {
    return {"$ZEIO_FILT$", 100, u"qolf", kind, {}};
}

constinit const zeio::FilterIdentity kImportIdentity = IdentityOf(zeio::FilterKind::Import);
constinit const zeio::FilterIdentity kExportIdentity = IdentityOf(zeio::FilterKind::Export);

}  // namespace

const zeio::FilterIdentity* MifImportFilter::GetFilterIdentity() const {
    return &kImportIdentity;
}

const zeio::FilterIdentity* MifExportFilter::GetFilterIdentity() const {
    return &kExportIdentity;
}

}  // namespace mif
