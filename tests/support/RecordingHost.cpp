#include "tests/support/RecordingHost.h"

#include "standalone/Text.h"
#include "tests/support/ObjectText.h"

#include <algorithm>
#include <iterator>

namespace support {

namespace {

using standalone::Narrow;

template <typename Class> std::unique_ptr<zeio::TrBase> CopyIf(const zeio::TrBase& object) {
    if (object.GetTypeId() != Class::GetClassTypeId()) {
        return nullptr;
    }
    return std::make_unique<Class>(static_cast<const Class&>(object));
}

using Copier = std::unique_ptr<zeio::TrBase> (*)(const zeio::TrBase&);

constexpr Copier kCopiers[] = {
    &CopyIf<zeio::TrInitGraphicsImp>, &CopyIf<zeio::TrCRS>,
    &CopyIf<zeio::TrNamedIds>,        &CopyIf<zeio::TrPen>,
    &CopyIf<zeio::TrBrush>,           &CopyIf<zeio::TrFont>,
    &CopyIf<zeio::TrPolyline>,        &CopyIf<zeio::TrPolygon>,
    &CopyIf<zeio::TrMarkerSet>,       &CopyIf<zeio::TrRectangle>,
    &CopyIf<zeio::TrEllipse>,         &CopyIf<zeio::TrText>,
};

std::string FlagText(bool flag, const char* name) {
    return flag ? std::string(" ") + name : "";
}

const char* BoolText(bool value) {
    return value ? "true" : "false";
}

}  // namespace

RecordingHost::RecordingHost() : IoHost(StoreOwner::store) {}

std::vector<std::string> RecordingHost::CallsStartingWith(std::string_view prefix) const {
    std::vector<std::string> found;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(found),
                 [&](const std::string& call) { return call.starts_with(prefix); });
    return found;
}

std::vector<std::string> RecordingHost::ImportedObjects() const {
    std::vector<std::string> found;
    std::copy_if(imported_.begin(), imported_.end(), std::back_inserter(found),
                 [](const std::string& text) { return !text.starts_with("InitGraphics"); });
    return found;
}

void RecordingHost::ForgetCalls() {
    calls_.clear();
    imported_.clear();
    objects_.clear();
}

bool RecordingHost::GetOption(const std::wstring& name, bool& value, bool persistent) {
    Record("GetOption " + Narrow(name) + FlagText(persistent, "persistent"));
    return IoHost::GetOption(name, value, persistent);
}

void RecordingHost::SetOption(const std::wstring& name, bool value, bool persistent) {
    Record("SetOption " + Narrow(name) + '=' + BoolText(value) +
           FlagText(persistent, "persistent"));
    IoHost::SetOption(name, value, persistent);
}

bool RecordingHost::GetStringOption(const std::wstring& options, const std::wstring& name,
                                    bool& value) {
    Record("GetStringOption " + Narrow(name));
    return IoHost::GetStringOption(options, name, value);
}

int RecordingHost::Warning(shr::IError::WarnStyle style, const std::wstring& text) {
    Record("Warning " + std::to_string(static_cast<int>(style)) + ' ' + Narrow(text));
    return 0;
}

void RecordingHost::ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion) {
    Record("ProgressStart" + FlagText(!title.empty(), Narrow(title).c_str()) +
           FlagText(canCancel, "cancel") + FlagText(hasProportion, "proportion"));
}

void RecordingHost::ProgressProportion(double fraction) {
    Record("ProgressProportion " + DescribeNumber(fraction));
}

void RecordingHost::ProgressIndeterminate() {
    Record("ProgressIndeterminate");
}

void RecordingHost::ProgressMessage(const std::wstring& text) {
    Record("Message " + Narrow(text));
}

void RecordingHost::ProgressEnd() {
    Record("ProgressEnd");
}

void RecordingHost::ImportObject(zeio::TrBase& object) {
    Record(DescribeObject(object));
    imported_.push_back(calls_.back());
    for (const Copier& copier : kCopiers) {
        if (std::unique_ptr<zeio::TrBase> copy = copier(object)) {
            objects_.push_back(std::move(copy));
        }
    }
    if (onObject) {
        onObject(object);
    }
}

void RecordingHost::ShowHelp(const std::wstring& topic, const std::wstring& anchor) {
    Record("ShowHelp " + Narrow(topic) + '#' + Narrow(anchor));
    if (onHelp) {
        onHelp(topic);
    }
}

}  // namespace support
