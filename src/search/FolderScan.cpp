#include "search/FolderScan.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"

#include <QScopedValueRollback>

#include <new>

namespace netrove {
namespace {

QString FolderPath(const QString& root) {
    return root.endsWith(u'\\') ? root : root + u'\\';
}

QString SearchPath(const QString& folderPath) {
    return folderPath + "*.*"_L1;
}

/// Runs a step and passes over any failure of it.
template <typename Step>
void Skipping(const Step& step) {
    static_cast<void>(FailureOf(step));
}

} // namespace

void FolderScan::WalkFolders(WalkRecord& record) {
    Yield();
    const QString folderPath = FolderPath(record.Root);
    context_.Update(folderPath);
    if (IsExcluded(folderPath) || depth_ >= MaxDepth)
        return;
    const QScopedValueRollback depth(depth_, depth_ + 1);
    FindData entry;
    const auto find = context_.services.files.FindFirst(SearchPath(folderPath), entry);
    if (!find)
        return;
    ScanFiles(record);
    do {
        if (!WalkEntry(record, folderPath, entry))
            return;
    } while (find->FindNext(entry));
}

/// Returns false if the walk has been abandoned.
bool FolderScan::WalkEntry(WalkRecord& record, const QString& folderPath, const FindData& entry) {
    Yield();
    if (context_.AbandonRequested)
        return false;
    if (!entry.IsDirectory())
        return true;
    Yield();
    if (!record.Recurse)
        return true;
    if (context_.AbandonRequested)
        return false;
    const QString name = CutAtZero(entry.fileName);
    if (name.isEmpty() || name == "."_L1 || name == ".."_L1)
        return true;
    Yield();
    record.Root = folderPath + name;
    WalkFolders(record);
    return !context_.AbandonRequested;
}

bool FolderScan::IsExcluded(const QString& folderPath) {
    const QString* entry =
        context_.services.exclusions.Folder(folderPath.mid(context_.NodeBaseStart - 1));
    if (entry == nullptr)
        return false;
    context_.services.log.PrintBlock({"Exclude Folder: "_L1 + *entry + " in "_L1 + folderPath});
    return true;
}

void FolderScan::ScanFiles(const WalkRecord& record) {
    Yield();
    const QString folderPath = FolderPath(record.Root);
    FindData entry;
    const auto find = context_.services.files.FindFirst(SearchPath(folderPath), entry);
    if (!find)
        return;
    // From the first match in a folder on, failing steps are passed over.
    bool skipping = false;
    do {
        Yield();
        if (context_.AbandonRequested)
            return;
        if (!entry.IsDirectory() && ScanEntry(folderPath, entry, skipping))
            skipping = true;
    } while (find->FindNext(entry));
}

/// Tests one file and reports it if it matches; returns whether it did.
bool FolderScan::ScanEntry(const QString& folderPath, const FindData& entry, bool skipping) {
    const QString name = CutAtZero(entry.fileName);
    Yield();
    if (!MatchesPattern(name, skipping))
        return false;
    Yield();
    Report(folderPath + name);
    return true;
}

bool FolderScan::MatchesPattern(const QString& name, bool skipping) const {
    for (const Pattern& pattern : context_.PatternList) {
        Yield();
        bool matches = false;
        if (skipping)
            Skipping([&] { matches = pattern.Matches(name); });
        else
            matches = pattern.Matches(name);
        if (matches)
            return true;
    }
    return false;
}

void FolderScan::Report(const QString& netPath) {
    if (context_.ItemFound)
        Skipping([&] { context_.ItemFound(netPath); });
    if (!context_.KeepResults)
        return;
    try {
        context_.ResultList.push_back(netPath);
    } catch (const std::bad_alloc&) {
        context_.ResultList = {QString(), netPath};
    }
}

bool FolderScan::IsFolder(const QString& path) {
    Yield();
    return context_.services.files.CanEnter(path);
}

} // namespace netrove
