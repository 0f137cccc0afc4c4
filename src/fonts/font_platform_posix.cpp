// SPDX-License-Identifier: MIT
#include <fontconfig/fontconfig.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "fonts/font_platform.h"

namespace Vellum::internal {

namespace {

namespace fs = std::filesystem;

using Paths = std::vector<std::string>;

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
        struct stat status = {};
        if (stat(directory.c_str(), &status) != 0) return;
        if (!searched_.emplace(status.st_dev, status.st_ino).second) return;
        Paths subdirectories;
        std::error_code error;
        for (fs::directory_iterator entry(directory, error), end; entry != end; entry.increment(error)) {
            std::error_code ignored;
            if (entry->is_directory(ignored)) {
                subdirectories.push_back(entry->path().native());
            } else if (IsFontName(entry->path().native()) && entry->is_regular_file(ignored)) {
                files_.push_back(entry->path().native());
            }
        }
        // Which of several paths to a directory counts does not depend on the order on the disk.
        std::sort(subdirectories.begin(), subdirectories.end());
        for (const std::string& subdirectory : subdirectories)
            Search(subdirectory);
    }

    std::set<std::pair<dev_t, ino_t>> searched_;
    Paths files_;
};

// Whether directories lie in the font folder, whatever links lead there.
class FontFolder {
public:
    FontFolder() {
        for (const std::string& directory : FolderDirectories())
            roots_.push_back(RealPath(directory));
    }

    bool Holds(const fs::path& directory) const {
        const std::string path = RealPath(directory) + '/';
        return std::any_of(roots_.begin(), roots_.end(),
                           [&path](const std::string& root) { return path.starts_with(root + '/'); });
    }

private:
    // The path itself where nothing is there.
    static std::string RealPath(const fs::path& path) {
        std::error_code error;
        const fs::path real = fs::canonical(path, error);
        return error ? path.native() : real.native();
    }

    Paths roots_;
};

struct FontconfigCloser {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    void operator()(FcStrList* list) const { FcStrListDone(list); }
};

using Config = std::unique_ptr<FcConfig, FontconfigCloser>;
using StringList = std::unique_ptr<FcStrList, FontconfigCloser>;

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

std::set<std::string> RegisteredPaths() {
    const FontFolder folder;
    // A configuration of our own: the one that a host may have made current stays as it is. Without a file it is empty.
    const Config config(FcConfigCreate());
    if (!config || !FcConfigParseAndLoad(config.get(), nullptr, FcFalse)) return {};
    AddFontsOutside(folder, config.get());
    std::set<std::string> paths;
    const FcFontSet* fonts = FcConfigGetFonts(config.get(), FcSetApplication);
    for (int i = 0; fonts != nullptr && i < fonts->nfont; ++i) {
        const char* path = TrueTypePath(fonts->fonts[i]);
        if (path != nullptr && !folder.Holds(fs::path(path).parent_path())) paths.insert(path);
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
