// The built command on many files: broken off in the middle and resumed, it gives what an
// undisturbed run gives.
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

namespace fs = std::filesystem;

int AppendLine(void* text, int count, char** values, char**) {
    for (int i = 0; i < count; ++i) {
        *static_cast<std::string*>(text) += std::string(values[i] ? values[i] : "NULL") + "|";
    }
    *static_cast<std::string*>(text) += "\n";
    return 0;
}

// What a package holds but for the time at which it was made.
std::string DumpOf(const fs::path& package) {
    sqlite3* handle = nullptr;
    std::string text;
    if (sqlite3_open_v2(package.c_str(), &handle, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        for (const char* sql :
             {"SELECT type, name, sql FROM sqlite_schema ORDER BY name", "PRAGMA integrity_check",
              "SELECT * FROM gpkg_spatial_ref_sys", "SELECT * FROM gpkg_geometry_columns",
              "SELECT table_name, min_x, min_y, max_x, max_y, srs_id FROM gpkg_contents"}) {
            sqlite3_exec(handle, sql, AppendLine, &text, nullptr);
        }
        const std::string rows = "SELECT fid, hex(geom), id FROM " + package.stem().string();
        sqlite3_exec(handle, rows.c_str(), AppendLine, &text, nullptr);
    }
    sqlite3_close(handle);
    return text;
}

class ManyFiles : public testing::Test {
protected:
    void WriteMaps(int count) {
        fs::create_directory(folder_.path() / "in");
        for (int i = 0; i < count; ++i) {
            const std::string name = "in/map" + std::to_string(i);
            const std::string number = std::to_string(i);
            folder_.Write(name + ".mif",
                          "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
                          "CoordSys Earth Projection 1, 104\n\nColumns 1\n  id Integer\nData\n\n"
                          "Point " +
                              number + " 0.5\nRegion 1\n3\n0 0\n" + number + " 1\n1 0.25\n");
            folder_.Write(name + ".mid", number + "\n" + number + "\n");
        }
    }

    pid_t Start(const std::string& format, const std::string& outputFolder,
                const std::vector<std::string>& more = {}) {
        std::vector<std::string> words = {
            QOLF_COMMAND, "convert", "--no-store",   "--jobs",           "2",
            "--to",       format,    "--output-dir", Path(outputFolder), Path("in")};
        words.insert(words.end(), more.begin(), more.end());
        std::vector<char*> arguments;
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, Path("messages").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        pid_t process = 0;
        posix_spawn(&process, QOLF_COMMAND, &files, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&files);
        return process;
    }

    // The exit code, or the negative number of the signal that ended it.
    static int End(pid_t process) {
        int status = 0;
        waitpid(process, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    int Run(const std::string& format, const std::string& outputFolder,
            const std::vector<std::string>& more = {}) {
        return End(Start(format, outputFolder, more));
    }

    // Breaks a run off once it has made so many outputs.
    int RunUntil(std::size_t count, int signalNumber, const std::string& format,
                 const std::string& outputFolder, const std::vector<std::string>& more = {}) {
        const pid_t process = Start(format, outputFolder, more);
        while (NamesIn(outputFolder).size() < count) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        kill(process, signalNumber);
        return End(process);
    }

    // Every name, hidden ones too.
    std::vector<std::string> NamesIn(const std::string& folder) const {
        std::vector<std::string> names;
        std::error_code error;
        for (fs::directory_iterator entries(Path(folder), error), end; !error && entries != end;
             entries.increment(error)) {
            names.push_back(entries->path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    // Of the files in a folder, without those of folders in it.
    std::map<std::string, std::string> BytesIn(const std::string& folder) const {
        std::map<std::string, std::string> bytes;
        for (const std::string& name : NamesIn(folder)) {
            if (!fs::is_directory(folder_.path() / folder / name)) {
                bytes[name] = folder_.Read(folder + "/" + name);
            }
        }
        return bytes;
    }

    std::map<std::string, std::string> DumpsIn(const std::string& folder) const {
        std::map<std::string, std::string> dumps;
        for (const std::string& name : NamesIn(folder)) {
            dumps[name] = DumpOf(Path(folder + "/" + name));
        }
        return dumps;
    }

    std::string Path(const std::string& name) const { return (folder_.path() / name).string(); }

    support::TemporaryFolder folder_;
};

TEST_F(ManyFiles, TerminatedAndResumedGiveTheBytesOfAnUndisturbedRun) {
    WriteMaps(1000);
    ASSERT_EQ(Run("geojson", "whole"), 0) << folder_.Read("messages");

    EXPECT_EQ(RunUntil(300, SIGTERM, "geojson", "resumed"), -SIGTERM);
    const std::vector<std::string> left = NamesIn("resumed");
    EXPECT_EQ(Run("geojson", "resumed", {"--resume"}), 0) << folder_.Read("messages");

    EXPECT_LT(left.size(), 1000U);
    EXPECT_FALSE(left.front().starts_with(".")) << left.front();
    EXPECT_EQ(NamesIn("resumed").size(), 1000U);
    EXPECT_TRUE(BytesIn("resumed") == BytesIn("whole"));
}

TEST_F(ManyFiles, KilledAndResumedGiveThePackagesOfAnUndisturbedRun) {
    WriteMaps(60);
    ASSERT_EQ(Run("gpkg", "whole"), 0) << folder_.Read("messages");

    EXPECT_EQ(RunUntil(20, SIGKILL, "gpkg", "resumed"), -SIGKILL);
    const std::map<std::string, std::string> whole = DumpsIn("whole");
    std::size_t count = 0;
    for (const std::string& name : NamesIn("resumed")) {
        if (name.ends_with(".gpkg")) {
            EXPECT_EQ(DumpOf(Path("resumed/" + name)), whole.at(name))
                << "a killed run left " << name;
            ++count;
        }
    }
    EXPECT_GE(count, 10U);
    EXPECT_EQ(Run("gpkg", "resumed", {"--resume"}), 0) << folder_.Read("messages");

    EXPECT_EQ(NamesIn("whole").size(), 60U);
    EXPECT_EQ(DumpsIn("resumed"), DumpsIn("whole"));
}

// A part that is killed at any time, on any machine, is started again in the same way.
TEST_F(ManyFiles, InPartsOfWhichOneIsKilledGiveTheBytesOfAnUndisturbedRun) {
    WriteMaps(400);
    ASSERT_EQ(Run("geojson", "whole"), 0) << folder_.Read("messages");
    const std::vector<std::string> first = {"--shard", "1/2", "--resume"};
    const std::vector<std::string> second = {"--shard", "2/2", "--resume"};

    EXPECT_EQ(RunUntil(100, SIGKILL, "geojson", "parts", first), -SIGKILL);
    EXPECT_EQ(Run("geojson", "parts", second), 0) << folder_.Read("messages");
    EXPECT_EQ(Run("geojson", "parts", first), 0) << folder_.Read("messages");

    EXPECT_TRUE(BytesIn("parts") == BytesIn("whole"));
    EXPECT_EQ(NamesIn("parts/.qolf"),
              (std::vector<std::string>{"1-of-2.jsonl", "2-of-2.jsonl", "plan.jsonl"}));
    for (const char* log : {"parts/.qolf/1-of-2.jsonl", "parts/.qolf/2-of-2.jsonl"}) {
        const std::string lines = folder_.Read(log);
        EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 200) << log;
    }
}

TEST_F(ManyFiles, ReplaceNothingUnasked) {
    WriteMaps(2);
    fs::create_directory(folder_.path() / "out");
    folder_.Write("out/map1.geojson", "mine");

    EXPECT_EQ(Run("geojson", "out"), 1);

    EXPECT_EQ(folder_.Read("out/map1.geojson"), "mine");
    EXPECT_EQ(folder_.Read("messages"), "qolf: error: " + Path("out/map1.geojson") +
                                            ": exists already; --overwrite replaces it\n"
                                            "qolf: note: converted 1 of 2 files, 1 failed\n");
}

TEST_F(ManyFiles, FailOneByOneInALineEach) {
    WriteMaps(3);
    folder_.Write("in/map1.mif", "Version 300\n");

    EXPECT_EQ(Run("gpkg", "out"), 1);

    EXPECT_EQ(NamesIn("out"), (std::vector<std::string>{"map0.gpkg", "map2.gpkg"}));
    const std::string messages = folder_.Read("messages");
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 2);
    EXPECT_TRUE(messages.starts_with("qolf: error: ") &&
                messages.find(Path("in/map1.mif")) != std::string::npos)
        << messages;
    EXPECT_TRUE(messages.ends_with("qolf: note: converted 2 of 3 files, 1 failed\n"));
}

}  // namespace
