// The error of reading JSON into objects and values.
#pragma once

#include <stdexcept>

namespace app {

// What is wrong with a piece of JSON: an unknown type, or a key of the wrong kind, which it names.
class JsonError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace app
