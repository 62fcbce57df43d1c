// Runs the built command as a user's shell would, with a configuration folder of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace cli {

struct Result {
    int exitCode = -1;  // -1: ended by a signal
    std::string out;
    std::string err;
};

// A folder that goes with the object, used as working folder and as the user's home.
class Sandbox {
public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    // Runs the command in the folder. input is what it finds on its standard input.
    Result Qolf(const std::vector<std::string>& arguments, const std::string& input = "") const;

    // Runs another program in the same way.
    Result Run(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& input = "") const;

    std::filesystem::path Path(const std::string& name) const { return folder_ / name; }
    std::filesystem::path Write(const std::string& name, const std::string& bytes) const;

    // The bytes of a file; of a pair's the lines with LF, whatever another command (Command) ended
    // them with.
    std::string Read(const std::string& name) const;

    // The names in the folder, in order, without what the command keeps for its user.
    std::vector<std::string> Names() const;

private:
    std::filesystem::path folder_;
};

// The built command; the module and the libraries are in its folder. QOLF_COMMAND in the
// environment names another one.
std::filesystem::path Command();

// The path of a sample file, and a file's bytes.
std::string Sample(const std::string& name);
std::string BytesOf(const std::filesystem::path& path);

}  // namespace cli
