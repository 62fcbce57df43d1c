// Where the export filter's errors and log entries say that they come from, in one table.
#pragma once

#include "reader/ErrorOrigin.h"

namespace mif {

inline constexpr ErrorOrigin kNoPageToTakeOptionsFrom{L"MifExportFilter", 178};
inline constexpr ErrorOrigin kCannotOpenMif{L"MifExportFilter", 226};
inline constexpr ErrorOrigin kCannotOpenMid{L"MifExportFilter", 238};
inline constexpr ErrorOrigin kCannotWriteMif{L"MifExportFilter", 402};
inline constexpr ErrorOrigin kCannotWriteMid{L"MifExportFilter", 451};
inline constexpr ErrorOrigin kCannotComplete{L"MifExportFilter", 536};

// Swallowed exceptions: they only reach the host's log.
inline constexpr ErrorOrigin kCannotDeleteMif{L"MifExportFilter", 96};
inline constexpr ErrorOrigin kCannotDeleteMid{L"MifExportFilter", 107};
inline constexpr ErrorOrigin kPageMessageFailed{L"MifExportDlg", 141};

}  // namespace mif
