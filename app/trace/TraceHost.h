// A host that writes every call of a filter as a line of JSON.
#pragma once

#include "app/base/Output.h"
#include "app/run/ExportRun.h"
#include "host/shr/IError.h"

#include <cstdint>
#include <functional>
#include <string>

namespace app {

class TraceHost : public ObservingHost {
public:
    // Both must outlive the host. Options are read from and written to the store, as without a
    // trace.
    TraceHost(standalone::OptionStore& store, OutputFile& output);

    bool GetOption(const std::wstring& name, bool& value, bool persistent) override;
    void SetOption(const std::wstring& name, bool value, bool persistent) override;
    bool GetStringOption(const std::wstring& options, const std::wstring& name,
                         bool& value) override;
    int Warning(shr::IError::WarnStyle style, const std::wstring& text) override;
    void ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion) override;
    void ProgressProportion(double fraction) override;
    void ProgressIndeterminate() override;
    void ProgressMessage(const std::wstring& text) override;
    void ProgressEnd() override;
    void ImportObject(zeio::TrBase& object) override;

    // Writes the line of a throw operation, by the class of the error. An empty `shown` leaves the
    // texts as they are.
    void Thrown(const shr::IError& error, const ShownText& shown = {}) override;

    // Graphic objects received.
    std::uint64_t ObjectCount() const { return objectCount_; }

private:
    // Writes {"call":"NAME"} with the members that `members` adds.
    template <typename Members> void Line(const char* call, const Members& members);

    OutputFile& output_;
    std::string line_;  // kept for its capacity
    std::uint64_t objectCount_ = 0;
};

}  // namespace app
