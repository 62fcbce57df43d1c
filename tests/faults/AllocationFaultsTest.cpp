// Every allocation in turn fails, in one import and one export of each kind of object.
#include "host/zeio/Errors.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "module/Module.h"
#include "standalone/IoHost.h"
#include "tests/faults/Drawings.h"
#include "tests/faults/FailingAllocations.h"
#include "tests/faults/OpenFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace fault_test {

namespace {

using testing::IsEmpty;

enum class Ending { Done, NoFilter, OutOfMemory, HostError };

// A host without memory of its own: whatever it would record would fail as well.
struct PlainHost {
    standalone::OptionStore store;
    zeio::IoHost host{store};
    zeio::IoManager manager{host};
};

Ending EndingOf(const std::function<bool(zeio::IoManager&)>& run, zeio::IoManager& manager) {
    try {
        return run(manager) ? Ending::Done : Ending::NoFilter;
    } catch (const std::bad_alloc&) {
        return Ending::OutOfMemory;
    } catch (const shr::IError&) {
        return Ending::HostError;
    }
}

struct Outcome {
    Ending ending = Ending::Done;
    bool hasFailed = false;
    long blocksLeft = 0;
};

Outcome RunWithFault(const std::function<bool(zeio::IoManager&)>& run, long number,
                     Failing failing) {
    Outcome outcome;
    const long before = LiveBlocks();
    {
        PlainHost host;
        const FailingAllocations faults(number, failing);
        outcome.ending = EndingOf(run, host.manager);
        outcome.hasFailed = FailingAllocations::HasFailed();
    }
    outcome.blocksLeft = LiveBlocks() - before;
    return outcome;
}

// What went wrong when each allocation of a run failed in turn. run makes a filter, uses it and
// deletes it, and gives false when there was none; isClean says whether no file was left.
std::vector<std::string> Objections(const std::function<bool(zeio::IoManager&)>& run,
                                    Failing failing, const std::function<bool()>& isClean) {
    {
        PlainHost first;  // what the libraries keep for good is allocated by now
        static_cast<void>(EndingOf(run, first.manager));
        static_cast<void>(isClean());
    }
    const std::size_t openFiles = OpenFileCount();
    std::vector<std::string> objections;
    for (long number = 1;; ++number) {
        const Outcome outcome = RunWithFault(run, number, failing);
        const std::string where = " at allocation " + std::to_string(number);
        if (!outcome.hasFailed) {
            return outcome.ending == Ending::Done ? objections : std::vector{"error" + where};
        }
        if (outcome.ending == Ending::Done) {
            objections.push_back("swallowed" + where);
        }
        if (outcome.blocksLeft != 0) {
            objections.push_back("leak" + where);
        }
        if (OpenFileCount() != openFiles) {
            objections.push_back("open file" + where);
        }
        if (!isClean()) {
            objections.push_back("file left" + where);
        }
    }
}

class ImportWithoutMemory : public testing::TestWithParam<ImportRow> {
protected:
    std::vector<std::string> ObjectionsTo(Failing failing) {
        const std::wstring path = folder_.Write("map.mif", MifWith(GetParam().objects));
        static_cast<void>(folder_.Write("map.mid", MidRows()));
        const auto run = [&path](zeio::IoManager& manager) {
            const std::unique_ptr<zeio::IoImportFilter> filter(ImportMIF(manager));
            if (filter != nullptr) {
                filter->Import(path);
            }
            return filter != nullptr;
        };
        return Objections(run, failing, [] { return true; });
    }

private:
    support::TemporaryFolder folder_;
};

class ExportWithoutMemory : public testing::TestWithParam<ExportRow> {
protected:
    std::vector<std::string> ObjectionsTo(Failing failing) {
        const Objects objects = GetParam().make();
        const std::wstring path = folder_.PathOf("out.mif");
        const auto run = [&path, &objects](zeio::IoManager& manager) {
            const std::unique_ptr<zeio::IoExportFilter> filter(ExportMIF(manager));
            if (filter != nullptr) {
                ExportAll(*filter, path, objects);
            }
            return filter != nullptr;
        };
        return Objections(run, failing, [this, failing] {
            // Deleting a file takes memory for its path; where there is none left it stays.
            const bool isClean = failing == Failing::ThatAndAllLater ||
                                 (!folder_.Has("out.mif") && !folder_.Has("out.mid"));
            std::filesystem::remove(folder_.path() / "out.mif");
            std::filesystem::remove(folder_.path() / "out.mid");
            return isClean;
        });
    }

    // The allocations of the last object at whose failure the export was ended as written, or left
    // a file.
    std::vector<long> AllocationsThatEndAsWritten() {
        std::vector<long> wrong;
        for (long number = 1;; ++number) {
            PlainHost host;
            const std::unique_ptr<zeio::IoExportFilter> filter(ExportMIF(host.manager));
            const bool hasFailed = SendAllWithFaultInTheLast(*filter, host.manager, number);
            const Ending end = EndingOf(
                [&](zeio::IoManager&) { return filter->EndExport() == zeio::ExportStatus::Done; },
                host.manager);
            if (!hasFailed) {
                return wrong;
            }
            if (end != Ending::HostError || folder_.Has("out.mif") || folder_.Has("out.mid")) {
                wrong.push_back(number);
            }
        }
    }

    // The allocations of BeginExport after whose failure the export could be ended as written.
    std::vector<long> BeginningsThatEndAsWritten() {
        const Objects objects = GetParam().make();
        std::vector<long> wrong;
        for (long number = 1;; ++number) {
            PlainHost host;
            const std::unique_ptr<zeio::IoExportFilter> filter(ExportMIF(host.manager));
            if (!FailsToBegin(*filter, number)) {
                return wrong;
            }
            for (const std::unique_ptr<zeio::TrBase>& object : objects) {
                EXPECT_THROW(filter->ExportObject(*object), zeio::FileWriteError);
            }
            if (filter->EndExport() != zeio::ExportStatus::NothingWritten ||
                folder_.Has("out.mif") || folder_.Has("out.mid")) {
                wrong.push_back(number);
            }
        }
    }

private:
    bool FailsToBegin(zeio::IoExportFilter& filter, long number) {
        const std::wstring path = folder_.PathOf("out.mif");
        try {
            const FailingAllocations faults(number, Failing::OnlyOne);
            static_cast<void>(filter.BeginExport(path));
        } catch (const std::bad_alloc&) {
            return true;
        }
        return false;
    }

    // True when the allocation with that number was reached, and so failed.
    bool SendAllWithFaultInTheLast(zeio::IoExportFilter& filter, zeio::IoManager& manager,
                                   long number) {
        const Objects objects = GetParam().make();
        static_cast<void>(filter.BeginExport(folder_.PathOf("out.mif")));
        for (std::size_t i = 0; i + 1 < objects.size(); ++i) {
            static_cast<void>(filter.ExportObject(*objects[i]));
        }
        const FailingAllocations faults(number, Failing::OnlyOne);
        const Ending ending = EndingOf(
            [&](zeio::IoManager&) {
                return filter.ExportObject(*objects.back()) == zeio::ExportStatus::Done;
            },
            manager);
        EXPECT_EQ(ending == Ending::OutOfMemory, FailingAllocations::HasFailed());
        return ending == Ending::OutOfMemory;
    }

    support::TemporaryFolder folder_;
};

}  // namespace

TEST_P(ImportWithoutMemory, OfOneBlockThrowsAndLeavesNothing) {
    EXPECT_THAT(ObjectionsTo(Failing::OnlyOne), IsEmpty());
}

TEST_P(ImportWithoutMemory, FromABlockOnThrowsAndLeavesNothing) {
    EXPECT_THAT(ObjectionsTo(Failing::ThatAndAllLater), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, ImportWithoutMemory, testing::ValuesIn(ImportRows()),
                         [](const auto& row) { return row.param.name; });

TEST_P(ExportWithoutMemory, OfOneBlockThrowsAndLeavesNothing) {
    EXPECT_THAT(ObjectionsTo(Failing::OnlyOne), IsEmpty());
}

TEST_P(ExportWithoutMemory, FromABlockOnThrowsAndLeaksNothing) {
    EXPECT_THAT(ObjectionsTo(Failing::ThatAndAllLater), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, ExportWithoutMemory, testing::ValuesIn(ExportRows()),
                         [](const auto& row) { return row.param.name; });

// The host goes on after the error.
TEST_P(ExportWithoutMemory, InTheMiddleOfAnObjectIsNotSaidToBeWritten) {
    EXPECT_THAT(AllocationsThatEndAsWritten(), IsEmpty());
}

// The host goes on with objects and the end: the fuzz target of host calls found a file without its
// first lines that was called written.
TEST_P(ExportWithoutMemory, AtItsBeginningIsNotSaidToBeWritten) {
    EXPECT_THAT(BeginningsThatEndAsWritten(), IsEmpty());
}

TEST(TheFactories, GiveNullWithoutMemoryForAFilter) {
    PlainHost host;
    zeio::IoImportFilter* importFilter = nullptr;
    zeio::IoExportFilter* exportFilter = nullptr;
    {
        const FailingAllocations faults(1, Failing::ThatAndAllLater);
        importFilter = ImportMIF(host.manager);
        exportFilter = ExportMIF(host.manager);
    }

    EXPECT_EQ(importFilter, nullptr);
    EXPECT_EQ(exportFilter, nullptr);
}

}  // namespace fault_test
