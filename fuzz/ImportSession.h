// One import filter under calls in any order, with a model of what each call may answer.
#pragma once

#include "fuzz/HostCall.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"

#include <memory>

namespace fuzz {

class ImportSession {
public:
    ImportSession();
    ~ImportSession();
    ImportSession(const ImportSession&) = delete;
    ImportSession& operator=(const ImportSession&) = delete;

    // Makes one call that the bytes choose, and checks what came of it.
    void CallOnce(Bytes& bytes);

private:
    void Import(Bytes& bytes);
    void AskAboutFile(Bytes& bytes);
    void TakeOptions(Bytes& bytes);
    void ShowDialog(Bytes& bytes);
    void Ask(const Fault& fault);
    void Restart(const Fault& fault);

    UnwillingHost host_;
    zeio::IoManager manager_{host_};
    std::unique_ptr<mif::MifImportFilter> filter_;
    bool hasFileOpen_ = false;  // an import failed in the middle: the next one is refused
};

}  // namespace fuzz
