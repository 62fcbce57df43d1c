// One export filter under calls in any order, with a model of what each call may answer and of
// which files may exist.
#pragma once

#include "export/MifExportFilter.h"
#include "fuzz/HostCall.h"
#include "host/zeio/IoManager.h"
#include "standalone/PropertySheet.h"

#include <map>
#include <memory>
#include <set>
#include <string>

namespace fuzz {

class ExportSession {
public:
    // Remembers the files that are there: each must stay as it is until an export creates it anew.
    ExportSession();
    ~ExportSession();
    ExportSession(const ExportSession&) = delete;
    ExportSession& operator=(const ExportSession&) = delete;

    // Makes one call that the bytes choose, and checks what came of it.
    void CallOnce(Bytes& bytes);

private:
    struct Sending;

    void Begin(Bytes& bytes);
    void Send(Bytes& input);
    void SendObject(zeio::TrBase& object, const Sending& sending, const Fault& fault);
    void End(const Fault& fault);
    void CheckWritten();
    void TakeOptions(Bytes& bytes);
    void OpenSheet(const Fault& fault);
    void UseSheet(Bytes& bytes);
    void Ask(Bytes& bytes);
    void Restart(const Fault& fault);
    void CheckFiles();

    UnwillingHost host_;
    zeio::IoManager manager_{host_};
    std::unique_ptr<mif::MifExportFilter> filter_;
    std::unique_ptr<standalone::PropertySheet> sheet_;  // may outlive its page and the filter

    // Contents that no call may change or delete: older files, and those of finished exports.
    std::map<std::wstring, std::string> kept_;
    std::set<std::wstring> created_;  // by exports, and not finished
    bool isExact_ = true;             // no deletion has failed, so no other file is there

    // The run since the last BeginExport.
    std::wstring path_;
    std::wstring midPath_;
    bool isBegun_ = false;
    bool isBroken_ = false;     // no object is taken any more
    bool hasGraphics_ = false;  // an object has made a header
    bool hasEnded_ = false;     // as written
    std::size_t rows_ = 0;
};

}  // namespace fuzz
