// The files behind what the user named: folders and archives become the files in them.
#pragma once

#include "app/archive/UnpackedArchive.h"
#include "app/base/Reporter.h"
#include "app/feature/Source.h"

#include <memory>
#include <string>
#include <vector>

namespace app {

enum class InputRule {
    Files,     // folders and archives become the files in them
    Archives,  // the same, and folders stay
    Folders,   // archives of several files become folders, to which the others stay as they are
    OneFile,   // one file, which may be in an archive
};

// What was unpacked goes with the last copy.
struct Inputs {
    std::vector<std::string> arguments;  // as PathFromArgument takes them; "-" stays
    std::shared_ptr<const void> unpacked = {};
};

// Replaces the arguments, in their order. A folder means the files in it and below that have
// an extension of a format, an archive (GEOFLA.zip) and a folder in one (GEOFLA.zip/2014) for the
// same; GEOFLA.zip/2014/COMMUNE.MIF is one file. Files of one folder are sorted. Those named .json
// hold all sorts of things and must be named; archives in folders must be, too, since what they
// hold often lies beside them. What does not exist stays as it is.
//
// Throws Failure for a folder and an archive without such files, for several files where one is
// wanted, and as UnpackedArchive does.
Inputs ResolveInputs(const std::vector<std::string>& arguments, InputRule rule,
                     const ArchiveLimits& limits, Reporter& reporter);

// Opens a file of another format than MIF, by its extension; "-" is GeoJSON. Without a source for a
// pair, and for a file of no format. Throws Failure.
SourceWithFormat OpenUnlessPair(const std::string& argument, const SourceOptions& options);

}  // namespace app
