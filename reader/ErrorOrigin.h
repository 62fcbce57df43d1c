// Where an error message says that it comes from. Callers see these values, so they are constants
// of the interface and do not follow the source files.
#pragma once

namespace mif {

struct ErrorOrigin {
    const wchar_t* source;  // a source file's name without folder and extension
    int line;
};

}  // namespace mif
