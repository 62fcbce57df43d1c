#include "app/archive/platform/NameLocale.h"

namespace app {

// libarchive uses the system's wide names.
struct NameLocale::Previous {};

NameLocale::NameLocale() = default;
NameLocale::~NameLocale() = default;

}  // namespace app
