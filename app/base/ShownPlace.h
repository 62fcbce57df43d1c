// What messages show in place of the private folders that archives are unpacked into.
#pragma once

#include <filesystem>
#include <string>

namespace app {

// As long as it lives, files below `folder` are shown as if they were below `shown` ("" is the
// working folder). Folders of several places must not lie in one another. For one thread.
class ShownPlace {
public:
    ShownPlace(const std::filesystem::path& folder, const std::filesystem::path& shown);
    ~ShownPlace();
    ShownPlace(const ShownPlace&) = delete;
    ShownPlace& operator=(const ShownPlace&) = delete;

private:
    std::string folder_;  // as it stands in texts
};

// Returns the text with every path below such a folder replaced by the one to show.
std::string WithShownPlaces(std::string utf8);

}  // namespace app
