#include "app/batch/BatchLog.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/json/JsonFields.h"
#include "app/json/JsonObjectWriter.h"
#include "host/platform/Stdio.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

namespace app {
namespace {

constexpr const char* kLogExtension = ".jsonl";

std::string LineText(const BatchLogLine& line) {
    std::string text;
    JsonObjectWriter object(text);
    object.Text("input", line.input);
    object.Text("output", line.output);
    if (line.features) {
        object.Integer("features", static_cast<std::int64_t>(*line.features));
    } else {
        object.Null("features");
    }
    object.Number("seconds", line.seconds);
    if (line.error.empty()) {
        object.Null("error");
    } else {
        object.Text("error", line.error);
    }
    object.Close();
    return text + "\n";
}

// Absent for what is no line of a log.
std::optional<BatchLogLine> LineOf(const std::string& text) {
    const std::optional<JsonFields> fields = JsonFields::Parse(text);
    if (!fields || !fields->Has("error")) {
        return std::nullopt;
    }
    BatchLogLine line;
    line.input = fields->Text("input").value_or("");
    line.output = fields->Text("output").value_or("");
    line.error = fields->Text("error").value_or("");
    line.features = fields->Whole("features");
    line.seconds = fields->Number("seconds").value_or(line.seconds);
    return line.output.empty() ? std::nullopt : std::optional(line);
}

// Whether the file has bytes and the last one is no line end.
bool EndsInALine(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    if (!stream || stream.tellg() <= 0) {
        return false;
    }
    stream.seekg(-1, std::ios::end);
    return stream.get() != '\n';
}

}  // namespace

std::filesystem::path LogPathOf(const std::filesystem::path& folder, const Shard& shard) {
    return folder / kBatchFolder /
           (std::to_string(shard.number) + "-of-" + std::to_string(shard.count) + kLogExtension);
}

std::vector<std::filesystem::path> LogsIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> logs;
    std::error_code error;
    std::filesystem::directory_iterator entries(folder / kBatchFolder, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        const std::filesystem::path& path = entries->path();
        if (path.extension() == kLogExtension &&
            PathText(path.filename()).find("-of-") != std::string::npos) {
            logs.push_back(path);
        }
    }
    std::ranges::sort(logs);
    return logs;
}

std::vector<BatchLogLine> ReadBatchLog(const std::filesystem::path& file) {
    std::vector<BatchLogLine> lines;
    std::ifstream stream(file, std::ios::binary);
    for (std::string text; std::getline(stream, text);) {
        if (std::optional<BatchLogLine> line = LineOf(text)) {
            lines.push_back(std::move(*line));
        }
    }
    return lines;
}

BatchLog::BatchLog(const std::filesystem::path& file, Begin begin) : file_(file) {
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (begin == Begin::Anew) {
        std::filesystem::remove(file, error);
    }
    const bool isCut = EndsInALine(file);
    errno = 0;
    stream_.reset(platform::OpenFile(WidePath(file), platform::OpenMode::AppendBinary));
    if (stream_ == nullptr) {
        throw Failure(PathText(file_) + ": can't write: " + std::strerror(errno));
    }
    // Without a buffer each line is written by one call, so a killed run leaves a whole line or no
    // part of it in nearly all cases. Readers skip a line that was cut off.
    std::setvbuf(stream_.get(), nullptr, _IONBF, 0);
    if (isCut) {
        Write("\n");
    }
}

void BatchLog::Add(const BatchLogLine& line) {
    Write(LineText(line));
}

void BatchLog::Write(const std::string& text) {
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stream_.get()) != text.size()) {
        throw Failure(PathText(file_) + ": can't write: " + std::strerror(errno));
    }
}

}  // namespace app
