#include "tests/cli/CliRun.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace cli {

namespace {

// The user's files of the command, inside the sandbox.
constexpr const char* kHome = ".home";

std::vector<char*> Pointers(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

int WaitFor(pid_t child) {
    int status = 0;
    if (waitpid(child, &status, 0) != child) {
        throw std::runtime_error("the command can't be waited for");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

Sandbox::Sandbox() {
    std::string name = (std::filesystem::temp_directory_path() / "qolf-cli-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    folder_ = name;
    std::filesystem::create_directory(folder_ / kHome);
}

Sandbox::~Sandbox() {
    std::error_code error;
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, error);
    std::filesystem::remove_all(folder_, error);
}

Result Sandbox::Qolf(const std::vector<std::string>& arguments, const std::string& input) const {
    return Run(Command().string(), arguments, input);
}

Result Sandbox::Run(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& input) const {
    const std::filesystem::path home = folder_ / kHome;
    const std::string in = (home / "in").string();
    const std::string out = (home / "out").string();
    const std::string err = (home / "err").string();
    std::ofstream(in, std::ios::binary) << input;

    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = {"HOME=" + home.string(),
                                          "XDG_CONFIG_HOME=" + home.string(), "PATH=/usr/bin:/bin",
                                          "LC_ALL=C.UTF-8"};
    if (const char* const options = std::getenv("LSAN_OPTIONS")) {
        variables.push_back(std::string("LSAN_OPTIONS=") + options);
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addchdir_np(&actions, folder_.c_str());
    pid_t child = 0;
    const int error = posix_spawn(&child, program.c_str(), &actions, nullptr,
                                  Pointers(words).data(), Pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::runtime_error("the command can't be started");
    }
    Result result;
    result.exitCode = WaitFor(child);
    result.out = BytesOf(out);
    result.err = BytesOf(err);
    return result;
}

std::filesystem::path Sandbox::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
}

std::string Sandbox::Read(const std::string& name) const {
    std::string bytes = BytesOf(Path(name));
    // Pairs that the command has written on Windows.
    const bool isPair = name.ends_with(".mif") || name.ends_with(".mid");
    if (isPair && std::getenv("QOLF_COMMAND") != nullptr) {
        std::erase(bytes, '\r');
    }
    return bytes;
}

std::vector<std::string> Sandbox::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
        if (entry.path().filename() != kHome) {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::filesystem::path Command() {
    const char* const other = std::getenv("QOLF_COMMAND");
    return other != nullptr ? other : QOLF_COMMAND;
}

std::string Sample(const std::string& name) {
    return std::string(QOLF_SAMPLES) + "/" + name;
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

}  // namespace cli
