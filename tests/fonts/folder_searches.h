// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_FONTS_FOLDER_SEARCHES_H
#define VELLUM_TESTS_FONTS_FOLDER_SEARCHES_H

namespace fonts_test {

/// While one lives, the library's searches of the font folder are counted, and each takes so long that others which
/// threads may begin meanwhile do begin. The folder must have no subdirectories. One at a time.
class SlowFolderSearches {
public:
    SlowFolderSearches();
    ~SlowFolderSearches();
    SlowFolderSearches(const SlowFolderSearches&) = delete;
    SlowFolderSearches& operator=(const SlowFolderSearches&) = delete;

    int Count() const;
};

}  // namespace fonts_test

#endif
