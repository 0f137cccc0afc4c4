// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_FONTS_FONT_PLATFORM_H
#define VELLUM_SRC_FONTS_FONT_PLATFORM_H

#include "fonts/font_paths.h"

/// What the catalogue asks of the platform: where font files are.
namespace Vellum::internal {

using FolderFonts = FontPaths<1200>;
using RegisteredFonts = FontPaths<100>;

/// Adds the files of the font folder. Where memory runs out the listing ends.
void FindFolderFonts(FolderFonts& found);

/// Adds the files that the platform keeps a record of, with full paths. Where memory runs out some are missing.
void FindRegisteredFonts(RegisteredFonts& found);

}  // namespace Vellum::internal

#endif
