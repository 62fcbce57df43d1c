#include "app/crs/SystemNotes.h"

namespace app {

void SayNotes(const CoordinateSystem& system, const std::string& prefix, Reporter& reporter) {
    for (const std::string& note : system.notes) {
        reporter.Note(prefix + note);
    }
    for (const std::string& warning : system.warnings) {
        reporter.Warning(prefix + warning);
    }
}

}  // namespace app
