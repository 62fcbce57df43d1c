#include "app/archive/platform/NameLocale.h"

#include <locale.h>

namespace app {

struct NameLocale::Previous {
    locale_t names = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);  // null on a system without it
    locale_t before = names != nullptr ? uselocale(names) : nullptr;
};

NameLocale::NameLocale() : previous_(std::make_unique<Previous>()) {}

NameLocale::~NameLocale() {
    if (previous_->names != nullptr) {
        uselocale(previous_->before);
        freelocale(previous_->names);
    }
}

}  // namespace app
