#include "app/check/RepairMif.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

namespace app {
namespace {

constexpr std::uint64_t kToTheEnd = std::numeric_limits<std::uint64_t>::max();

// Copies one file and applies edits on the way.
class EditedCopy {
public:
    using Write = std::function<void(std::string_view)>;
    using OnEdit = std::function<void(const Edit&)>;

    EditedCopy(const std::filesystem::path& source, Write write, OnEdit onEdit)
        : source_(AsOnDisk(source)), stream_(source_, std::ios::binary), write_(std::move(write)),
          onEdit_(std::move(onEdit)) {
        if (!stream_) {
            throw Failure(PathText(source) + ": can't be opened");
        }
    }

    void Add(const Edit& edit) { pending_.push_back(edit); }

    // Applies all edits that begin before offset and copies what is before the next one.
    void Settle(std::uint64_t offset) {
        const auto later =
            std::stable_partition(pending_.begin(), pending_.end(),
                                  [&](const Edit& edit) { return edit.begin < offset; });
        std::stable_sort(pending_.begin(), later, ComesFirst);
        for (auto edit = pending_.begin(); edit != later; ++edit) {
            // One that covers others has replaced them.
            if (edit->begin >= position_) {
                CopyUntil(edit->begin);
                write_(edit->text);
                Drop(edit->end - edit->begin);
                onEdit_(*edit);
            }
        }
        pending_.erase(pending_.begin(), later);
    }

    void Finish() {
        Settle(kToTheEnd);
        CopyUntil(kToTheEnd);
        if (stream_.bad()) {
            throw Failure(PathText(source_) + ": can't be read");
        }
    }

private:
    // Insertions come before replacements at the same place, larger edits before smaller ones.
    static bool ComesFirst(const Edit& left, const Edit& right) {
        if (left.begin != right.begin) {
            return left.begin < right.begin;
        }
        const bool isLeftInsertion = left.begin == left.end;
        const bool isRightInsertion = right.begin == right.end;
        if (isLeftInsertion != isRightInsertion) {
            return isLeftInsertion;
        }
        return left.end > right.end;
    }

    void CopyUntil(std::uint64_t offset) {
        while (position_ < offset && stream_) {
            const std::uint64_t wanted =
                std::min<std::uint64_t>(offset - position_, buffer_.size());
            stream_.read(buffer_.data(), static_cast<std::streamsize>(wanted));
            const auto got = static_cast<std::size_t>(stream_.gcount());
            write_({buffer_.data(), got});
            position_ += got;
        }
    }

    void Drop(std::uint64_t count) {
        stream_.ignore(static_cast<std::streamsize>(count));
        position_ += count;
    }

    std::filesystem::path source_;
    std::ifstream stream_;
    Write write_;
    OnEdit onEdit_;
    std::vector<Edit> pending_;
    std::uint64_t position_ = 0;
    std::array<char, 65536> buffer_{};
};

class NullSink : public FindingSink {
public:
    void Add(const Finding& finding) override {
        isUnreadable_ = isUnreadable_ || finding.code->code == FindingCode::FileUnreadable ||
                        finding.code->code == FindingCode::Utf16;
    }
    bool IsUnreadable() const { return isUnreadable_; }

private:
    bool isUnreadable_ = false;
};

class RepairSink : public FindingSink {
public:
    RepairSink(EditedCopy& mif, EditedCopy* mid) : mif_(mif), mid_(mid) {}

    void Add(const Finding&) override {}
    void AddEdit(FileOfPair file, const Edit& edit) override {
        if (EditedCopy* const copy = CopyOf(file); copy != nullptr) {
            copy->Add(edit);
        }
    }
    void Settle(FileOfPair file, std::uint64_t offset) override {
        if (EditedCopy* const copy = CopyOf(file); copy != nullptr) {
            copy->Settle(offset);
        }
    }

private:
    EditedCopy* CopyOf(FileOfPair file) { return file == FileOfPair::Mif ? &mif_ : mid_; }

    EditedCopy& mif_;
    EditedCopy* mid_;
};

// A file in the private folder of a pair.
class WorkFile {
public:
    explicit WorkFile(const std::filesystem::path& path)
        : path_(path), stream_(path, std::ios::binary) {}

    void Write(std::string_view bytes) {
        errno = 0;
        stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        Check();
    }
    void Close() {
        errno = 0;
        stream_.close();
        Check();
    }

private:
    void Check() {
        if (!stream_) {
            throw Failure(PathText(path_.filename()) + ": can't write: " + std::strerror(errno));
        }
    }

    std::filesystem::path path_;
    std::ofstream stream_;
};

TabRewriting LookForTabs(const std::filesystem::path& input, const ProgressSink& progress) {
    NullSink sink;
    const FindingCounts counts =
        CheckPair(input, {.maxPerCode = 1, .progress = progress}, sink).findings;
    if (sink.IsUnreadable()) {
        throw Failure(PathText(input) + ": can't be repaired: it can't be read as a text of single "
                                        "bytes");
    }
    return counts[static_cast<std::size_t>(FindingCode::EmptyFieldUnderTab)].found > 0
               ? TabRewriting::On
               : TabRewriting::Off;
}

}  // namespace

RepairReport RepairMif(const std::filesystem::path& input, const std::filesystem::path& output,
                       IfExists ifExists, const NextPassWatch& nextPass) {
    const std::filesystem::path mid = FindCompanion(input, ".mid");
    CheckNotInput(input, output);
    CheckOutput(output, ifExists);
    const TabRewriting rewriting = LookForTabs(input, nextPass ? nextPass() : ProgressSink());
    RepairReport report;
    report.hasMid = !mid.empty();
    FindingCounts listed{};
    const auto record = [&](const std::filesystem::path& file) {
        return [&, file](const Edit& edit) {
            ++report.count;
            if (listed[static_cast<std::size_t>(edit.code)].found++ < RepairReport::kMaxListed) {
                report.repairs.push_back({edit.code, file, edit.line, edit.what});
            }
        };
    };
    const PairCheckOptions options{.maxPerCode = 1,
                                   .tabRewriting = rewriting,
                                   .progress = nextPass ? nextPass() : ProgressSink()};
    if (mid.empty()) {
        OutputFile out(output, ifExists);
        out.Write({});
        EditedCopy copy(
            input, [&](std::string_view bytes) { out.Write(bytes); }, record(input));
        RepairSink sink(copy, nullptr);
        static_cast<void>(CheckPair(input, options, sink));
        copy.Finish();
        if (report.count > 0) {
            out.Finish();
        }
        return report;
    }
    OutputPair pair(output, ifExists);
    std::filesystem::path workMid = pair.WorkPath();
    workMid.replace_extension(".mid");
    WorkFile outMif(pair.WorkPath());
    WorkFile outMid(workMid);
    EditedCopy mifCopy(
        input, [&](std::string_view b) { outMif.Write(b); }, record(input));
    EditedCopy midCopy(
        mid, [&](std::string_view b) { outMid.Write(b); }, record(mid));
    RepairSink sink(mifCopy, &midCopy);
    static_cast<void>(CheckPair(input, options, sink));
    mifCopy.Finish();
    midCopy.Finish();
    outMif.Close();
    outMid.Close();
    if (report.count > 0) {
        pair.Finish();
    }
    return report;
}

}  // namespace app
