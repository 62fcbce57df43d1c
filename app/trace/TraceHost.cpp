#include "app/trace/TraceHost.h"

#include "app/json/JsonObjectWriter.h"
#include "app/json/JsonText.h"
#include "app/run/ImportRun.h"
#include "app/trace/TraceJson.h"
#include "host/zeio/Errors.h"
#include "standalone/Text.h"

namespace app {
namespace {

void AppendTexts(JsonObjectWriter& writer, const std::wstring& path, const zeio::FileError& error) {
    std::string& out = writer.Member("texts");
    out += '[';
    AppendJsonString(out, standalone::Narrow(path));
    out += ',';
    AppendJsonString(out, standalone::Narrow(error.Reason()));
    out += ']';
}

}  // namespace

TraceHost::TraceHost(standalone::OptionStore& store, OutputFile& output)
    : ObservingHost(store), output_(output) {}

template <typename Members> void TraceHost::Line(const char* call, const Members& members) {
    line_.clear();
    JsonObjectWriter writer(line_);
    AppendJsonString(writer.Member("call"), call);
    members(writer);
    writer.Close();
    line_ += '\n';
    output_.Write(line_);
}

bool TraceHost::GetOption(const std::wstring& name, bool& value, bool persistent) {
    Line("GetOption", [&](JsonObjectWriter& writer) {
        writer.Text("name", name);
        writer.Boolean("flag", persistent);
    });
    return IoHost::GetOption(name, value, persistent);
}

void TraceHost::SetOption(const std::wstring& name, bool value, bool persistent) {
    Line("SetOption", [&](JsonObjectWriter& writer) {
        writer.Text("name", name);
        writer.Boolean("value", value);
        writer.Boolean("flag", persistent);
    });
    IoHost::SetOption(name, value, persistent);
}

bool TraceHost::GetStringOption(const std::wstring& options, const std::wstring& name,
                                bool& value) {
    Line("GetStringOption", [&](JsonObjectWriter& writer) {
        writer.Text("options", options);
        writer.Text("name", name);
    });
    return IoHost::GetStringOption(options, name, value);
}

int TraceHost::Warning(shr::IError::WarnStyle style, const std::wstring& text) {
    Line("Warning", [&](JsonObjectWriter& writer) {
        writer.Integer("style", static_cast<int>(style));
        writer.Text("text", text);
    });
    return 0;
}

void TraceHost::ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion) {
    Line("ProgressStart", [&](JsonObjectWriter& writer) {
        writer.Text("title", title);
        std::string& out = writer.Member("flags");
        out += canCancel ? "[true," : "[false,";
        out += hasProportion ? "true]" : "false]";
    });
}

void TraceHost::ProgressProportion(double fraction) {
    Line("ProgressProportion",
         [&](JsonObjectWriter& writer) { writer.Number("fraction", fraction); });
}

void TraceHost::ProgressIndeterminate() {
    Line("ProgressIndeterminate", [](JsonObjectWriter&) {});
}

void TraceHost::ProgressMessage(const std::wstring& text) {
    Line("Message", [&](JsonObjectWriter& writer) { writer.Text("text", text); });
}

void TraceHost::ProgressEnd() {
    Line("ProgressEnd", [](JsonObjectWriter&) {});
}

void TraceHost::ImportObject(zeio::TrBase& object) {
    objectCount_ += IsGraphics(object) ? 1 : 0;
    Line("ImportObject",
         [&](JsonObjectWriter& writer) { AppendObjectJson(writer.Member("object"), object); });
}

void TraceHost::Thrown(const shr::IError& error, const ShownText& shown) {
    const auto asShown = [&](const std::wstring& text) { return shown ? shown(text) : text; };
    const auto* open = dynamic_cast<const zeio::FileOpenError*>(&error);
    const auto* write = dynamic_cast<const zeio::FileWriteError*>(&error);
    const bool isInternal = dynamic_cast<const zeio::InternalError*>(&error) != nullptr;
    const char* call = open != nullptr    ? "Throw_ERR_FILE_OPEN"
                       : write != nullptr ? "Throw_ERR_FILE_WRITE"
                       : isInternal       ? "Throw_ERR_INTERNAL"
                                          : "ThrowErrorMsg";
    Line(call, [&](JsonObjectWriter& writer) {
        writer.Text("source", error.Source());
        writer.Integer("line", error.Line());
        if (open != nullptr || write != nullptr) {
            const auto& fileError = static_cast<const zeio::FileError&>(error);
            AppendTexts(writer, asShown(fileError.Path()), fileError);
        } else if (!isInternal) {
            writer.Text("message", asShown(error.Message()));
        }
    });
}

}  // namespace app
