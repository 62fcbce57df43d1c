#include "app/CommandLibrary.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/run/Module.h"

#include <string_view>

namespace app {
namespace {

const CommandLibrary& Load() {
    const std::filesystem::path path = FindBesideProgram(kCommandLibraryFileName);
    std::string reason;
    // Never unloaded: objects with code of the library live until the end of the program.
    static const auto* const library =
        new std::shared_ptr<void>(LoadSharedLibrary(path, reason, SymbolBinding::AtFirstCall));
    if (*library == nullptr) {
        throw Failure(PathText(path) + ": can't load the commands: " + reason);
    }
    const auto function = reinterpret_cast<CommandLibraryFunction>(
        LibrarySymbol(library->get(), kCommandLibraryFunction));
    const CommandLibrary* offered = function != nullptr ? function() : nullptr;
    if (offered == nullptr || std::string_view(offered->version) != QOLF_VERSION) {
        throw Failure(PathText(path) + ": belongs to another version of qolf");
    }
    return *offered;
}

}  // namespace

const CommandLibrary& LoadCommandLibrary() {
    static const CommandLibrary& library = Load();
    return library;
}

}  // namespace app
