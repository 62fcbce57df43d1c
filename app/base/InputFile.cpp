#include "app/base/InputFile.h"

#include "app/base/Paths.h"
#include "host/platform/Stdio.h"

namespace app {

InputFile OpenInput(const std::filesystem::path& path) {
    return InputFile(platform::OpenFile(WidePath(path), platform::OpenMode::ReadBinary));
}

}  // namespace app
