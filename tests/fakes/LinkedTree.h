#pragma once

#include "redirector/NetworkProvider.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <set>

#include <sys/stat.h>

namespace netrove {

/// The ways to files below a folder, as "a\b\file".
using FileWays = std::set<std::string>;

/// Fills a folder with a random tree of few names, with links among its folders: to themselves,
/// back to folders above, and to others. Gives the ways of a walk that goes through no folder twice
/// on one of them.
inline FileWays MakeLinkedTree(const std::filesystem::path& top, unsigned seed) {
    namespace fs = std::filesystem;
    std::mt19937 random(seed);
    std::vector<fs::path> folders{top};
    const auto folder = [&] { return folders[random() % folders.size()]; };
    const auto name = [&] { return std::string(1, "abc"[random() % 3]); };
    for (unsigned count = 8 + random() % 8; count > 0; --count) {
        if (const fs::path added = folder() / name(); fs::create_directories(added))
            folders.push_back(added);
    }
    for (const fs::path& one : folders)
        std::ofstream(one / "file") << one;
    std::error_code exists;
    for (unsigned count = 1 + random() % 4; count > 0; --count)
        fs::create_directory_symlink(random() % 3 ? folder() : ".", folder() / name(), exists);

    FileWays ways;
    const std::function<void(const fs::path&, const std::string&, std::set<ino_t>)> walk =
        [&](const fs::path& at, const std::string& way, std::set<ino_t> passed) {
            struct stat status {};
            if (stat(at.c_str(), &status) != 0 || !passed.insert(status.st_ino).second)
                return;
            for (const auto& entry : fs::directory_iterator(at)) {
                const std::string next = way + entry.path().filename().string();
                if (entry.is_directory())
                    walk(entry, next + '\\', passed);
                else
                    ways.insert(next);
            }
        };
    walk(top, "", {});
    return ways;
}

/// The ways of a walk through a provider's folder; one that goes round for ever ends where they are
/// far too many.
inline void Walk(NetworkProvider& provider, const QString& folder, const std::string& way,
                 FileWays& ways) {
    FindData data;
    auto find = provider.FindFirst(*UncPath::Parse(folder), data);
    for (bool more = find != nullptr; more && ways.size() < 5000; more = find->FindNext(data)) {
        const std::string next = way + data.fileName.toStdString();
        if (!data.IsDirectory())
            ways.insert(next);
        else if (!data.fileName.startsWith(u'.'))
            Walk(provider, folder + u'\\' + data.fileName, next + '\\', ways);
    }
}

} // namespace netrove
