// qolf options: the filters' stored options, as a list and as the filters' own pages.
//
// Every function returns the exit code and throws Failure when the store can't be written.
#pragma once

#include "app/base/Reporter.h"

#include <string>
#include <vector>

namespace app {

// Returns the names of the options.
std::vector<std::string> OptionNames();

// Prints a line for each option: its name, its value and what it means.
int ListOptions();

// Stores `settings`, each "NAME=yes" or "NAME=no". Throws UsageError for an option that does not
// exist and for another value.
int SetOptions(const std::vector<std::string>& settings);

// Forgets all that is stored.
int ResetOptions();

enum class OptionsPage { Import, Export };

// Shows a filter's own page and stores what the user accepts. `modulePath` as in Module.
int ShowPage(OptionsPage page, const std::string& modulePath, Reporter& reporter);

}  // namespace app
