// SPDX-License-Identifier: MIT
#include <dirent.h>
#include <fontconfig/fontconfig.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fonts/font_platform.h"

namespace Vellum::internal {

namespace {

using Paths = std::vector<std::string>;

struct Closer {
    void operator()(char* text) const { std::free(text); }
    void operator()(DIR* directory) const { closedir(directory); }
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    void operator()(FcStrList* list) const { FcStrListDone(list); }
};

using OpenDirectory = std::unique_ptr<DIR, Closer>;

// The font folder is the directories "fonts" below the data directories, in their order.
Paths FolderDirectories() {
    const char* variable = std::getenv("XDG_DATA_DIRS");
    const bool isSet = variable != nullptr && *variable != '\0';
    std::string_view rest = isSet ? variable : "/usr/local/share:/usr/share";
    Paths directories;
    while (!rest.empty()) {
        const std::string_view entry = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(entry.size() + 1, rest.size()));
        // Relative entries are invalid.
        if (!entry.starts_with('/')) continue;
        const size_t end = entry.find_last_not_of('/') + 1;
        directories.push_back(std::string(entry.substr(0, end)) + "/fonts");
    }
    return directories;
}

// "*.tt?", in any letter case.
bool IsFontName(std::string_view name) {
    if (name.size() < 4) return false;
    const std::string_view suffix = name.substr(name.size() - 4, 3);
    const auto isT = [](char c) { return c == 't' || c == 'T'; };
    return suffix[0] == '.' && isT(suffix[1]) && isT(suffix[2]);
}

enum class Kind { Directory, File, Other };

Kind KindOf(mode_t mode) { return S_ISDIR(mode) ? Kind::Directory : S_ISREG(mode) ? Kind::File : Kind::Other; }

// Of what a link leads to, where it is one. The directory tells most kinds without another look at the disk.
Kind KindOf(DIR* directory, const dirent& entry) {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return KindOf(static_cast<mode_t>(DTTOIF(entry.d_type)));
    struct stat status = {};
    return fstatat(dirfd(directory), entry.d_name, &status, 0) == 0 ? KindOf(status.st_mode) : Kind::Other;
}

// Finds the font files below directories. A directory that links lead to again is passed over, so links may go round.
class FolderSearch {
public:
    // The paths of the files below a directory, in ascending order.
    Paths FilesBelow(const std::string& directory) {
        Search(directory);
        std::sort(files_.begin(), files_.end());
        return std::exchange(files_, {});
    }

private:
    void Search(const std::string& directory) {
        Paths subdirectories = FilesIn(directory);
        // Which of several paths to a directory counts does not depend on the order on the disk.
        std::sort(subdirectories.begin(), subdirectories.end());
        for (const std::string& subdirectory : subdirectories)
            Search(subdirectory);
    }

    // Returns the subdirectories.
    Paths FilesIn(const std::string& path) {
        Paths subdirectories;
        const OpenDirectory directory(opendir(path.c_str()));
        if (!directory || !IsNew(directory.get())) return subdirectories;
        while (const dirent* entry = readdir(directory.get())) {
            const std::string_view name = entry->d_name;
            if (name == "." || name == "..") continue;
            const Kind kind = KindOf(directory.get(), *entry);
            if (kind == Kind::Directory) subdirectories.push_back(path + '/' + entry->d_name);
            if (kind == Kind::File && IsFontName(name)) files_.push_back(path + '/' + entry->d_name);
        }
        return subdirectories;
    }

    bool IsNew(DIR* directory) {
        struct stat status = {};
        return fstat(dirfd(directory), &status) == 0 && searched_.emplace(status.st_dev, status.st_ino).second;
    }

    std::set<std::pair<dev_t, ino_t>> searched_;
    Paths files_;
};

// Whether files and directories lie in the font folder: by their own paths, though a link may lead out of it again, or
// by the paths that their links resolve to.
class FontFolder {
public:
    FontFolder() {
        for (const std::string& directory : FolderDirectories()) {
            roots_.push_back(directory);
            roots_.push_back(RealPath(directory));
        }
    }

    bool Holds(const std::string& path) const { return IsBelowARoot(path) || IsBelowARoot(RealPath(path)); }

private:
    // The roots themselves count.
    bool IsBelowARoot(const std::string& path) const {
        return std::any_of(roots_.begin(), roots_.end(),
                           [&path](const std::string& root) { return (path + '/').starts_with(root + '/'); });
    }

    // The path itself where nothing is there.
    static std::string RealPath(const std::string& path) {
        const std::unique_ptr<char, Closer> real(realpath(path.c_str(), nullptr));
        return real ? real.get() : path;
    }

    Paths roots_;
};

using Config = std::unique_ptr<FcConfig, Closer>;
using StringList = std::unique_ptr<FcStrList, Closer>;

const char* TextOf(const FcChar8* text) { return reinterpret_cast<const char*>(text); }

// The configured directories outside the font folder are scanned one by one. What lies in the font folder would be read
// for nothing, and where fontconfig has no cache yet that takes longer than all that the catalogue does itself.
void AddFontsOutside(const FontFolder& folder, FcConfig* config) {
    const StringList directories(FcConfigGetFontDirs(config));
    if (!directories) return;
    while (const FcChar8* directory = FcStrListNext(directories.get())) {
        if (!folder.Holds(TextOf(directory))) FcConfigAppFontAddDir(config, directory);
    }
}

// The path of a scalable TrueType font; null for any other font.
const char* TrueTypePath(const FcPattern* font) {
    FcBool isScalable = FcFalse;
    FcChar8* format = nullptr;
    FcChar8* path = nullptr;
    const bool isTrueType = FcPatternGetBool(font, FC_SCALABLE, 0, &isScalable) == FcResultMatch && isScalable &&
                            FcPatternGetString(font, FC_FONTFORMAT, 0, &format) == FcResultMatch &&
                            std::strcmp(TextOf(format), "TrueType") == 0;
    if (!isTrueType || FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch || *path != '/') return nullptr;
    return TextOf(path);
}

bool HasCacheDirectory(FcConfig* config) {
    const StringList directories(FcConfigGetCacheDirs(config));
    return directories && FcStrListNext(directories.get()) != nullptr;
}

// A configuration of our own: the one that a host may have made current stays as it is. FcInitLoadConfig knows what to
// do where something is missing, but it also reads what describes all rules that are not configured, which takes
// nearly as long as the configuration itself.
Config LoadConfig() {
    Config config(FcConfigCreate());
    const bool isWhole =
        config && FcConfigParseAndLoad(config.get(), nullptr, FcTrue) != FcFalse && HasCacheDirectory(config.get());
    if (!isWhole) config.reset(FcInitLoadConfig());
    return config;
}

std::set<std::string> RegisteredPaths() {
    const FontFolder folder;
    const Config config = LoadConfig();
    if (!config) return {};
    AddFontsOutside(folder, config.get());
    std::set<std::string> paths;
    const FcFontSet* fonts = FcConfigGetFonts(config.get(), FcSetApplication);
    for (int i = 0; fonts != nullptr && i < fonts->nfont; ++i) {
        const char* path = TrueTypePath(fonts->fonts[i]);
        if (path != nullptr && !folder.Holds(path)) paths.insert(path);
    }
    return paths;
}

// Adds copies while there is room; false at the first that there is no room or memory for.
template <class Found, class Range>
bool AddAll(const Range& paths, Found& found) {
    return std::all_of(paths.begin(), paths.end(), [&found](const std::string& path) {
        if (found.IsFull()) return false;
        OwnedText copy = CopyOfText(path.c_str());
        if (!copy) return false;
        found.Add(std::move(copy));
        return true;
    });
}

}  // namespace

void FindFolderFonts(FolderFonts& found) {
    try {
        FolderSearch search;
        for (const std::string& directory : FolderDirectories()) {
            if (!AddAll(search.FilesBelow(directory), found)) return;
        }
    } catch (const std::bad_alloc&) {
        // What has been found stands.
    }
}

void FindRegisteredFonts(RegisteredFonts& found) {
    try {
        AddAll(RegisteredPaths(), found);
    } catch (const std::bad_alloc&) {
        // There was no memory to find any.
    }
}

}  // namespace Vellum::internal
