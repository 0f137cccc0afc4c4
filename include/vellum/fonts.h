// SPDX-License-Identifier: MIT
#ifndef VELLUM_FONTS_H
#define VELLUM_FONTS_H

/// @file
/// The catalogue of the outline fonts that are installed on the machine.
///
/// There is one catalogue for the process, and it answers two questions: which face names there are (`GetFontFaceList`,
/// with the seven built-in stroke fonts among them) and which styles a face name has (`GetStylesForFontFace`).
/// @code
///     Vellum::Fonts* fonts = Vellum::Fonts::getInstance();
///     Vellum::fnt_lst_t* faces = fonts->GetFontFaceList();
///     for (Vellum::fnt_lst_t* face = faces; face != nullptr && face->face_name != nullptr; ++face) ...
///     fonts->DeleteFontFaceList(faces);
/// @endcode
///
/// Where fonts are looked for, in this order:
/// - The font folder. On Windows the folder that the shell names, or `Fonts` beside the system directory where it
///   names none; every entry `*.tt?`, a directory of such a name too, in the order in which the system finds them,
///   without subdirectories. Elsewhere the directory `fonts` below each entry of `XDG_DATA_DIRS`
///   (/usr/local/share:/usr/share where that is empty or not set; entries that are not absolute are ignored), in that
///   order, with all subdirectories; the regular files that match `*.tt?` in any letter case, in ascending byte-wise
///   order of their paths within an entry. Symbolic links are followed; a directory that several paths lead to is
///   searched once, under the one that comes first when each directory is searched to its depths before the next, in
///   the order of their names. At most 1,200 files.
/// - The registered fonts. On Windows the system enumerates the TrueType families, each once for every character set,
///   and each time the file counts that the registry's value `<family> (TrueType)` names, if ':' is its second
///   character and it takes at most 200 bytes. Elsewhere fontconfig's scalable fonts of format TrueType that lie
///   outside the font folder, each path once, in ascending byte-wise order; where there is no usable configuration,
///   those in the directories that fontconfig falls back to. A file lies in the font folder where its path, as it is
///   or with all links resolved, is below one of the folder's directories, as it is or resolved. So a file outside
///   that a link in the folder leads to is a registered font too, under its own path. At most 100 paths, repetitions
///   included.
///
/// Where the font folder holds no file the registered fonts are not looked for either: there is no catalogue then.
///
/// On Windows paths are in the process's ANSI code page.
///
/// Threads: only the creation in `getInstance` is safe against concurrent callers. Scans and queries are not locked; a
/// host makes them on one thread at a time. The lists handed out may be used anywhere. The C library's `getenv` and
/// the locale's `tolower` are used, which a host must not change meanwhile. On Windows `getenv` reads the C runtime's
/// copy of the environment: what SetEnvironmentVariable sets after the start of the process is not seen.
///
/// No exception leaves, and the library prints no message; fontconfig may complain of its configuration and its cache
/// on standard error. Font files are not trusted: one that is damaged adds no records, or none beyond the faces before
/// the damage.

#include <cstdint>

#include "vellum/export.h"
#include "vellum/records.h"

/// FreeType's face; its headers are needed only by a host that opens one itself.
struct FT_FaceRec_;

namespace Vellum {

/// One face of one font file. The strings belong to the catalogue; they are blocks from new[] and are never released,
/// so that a host may keep the pointers, over later scans too.
struct FontFaceRec {
    char* filePath;         ///< the full path
    uint32_t faceIndex;     ///< which face of the file; collections hold several
    char* familyName;       ///< FreeType's name of the family; empty where the face has none
    char* styleName;        ///< FreeType's name of the style; empty where the face has none
    int32_t localeFlag;     ///< what `GetFontLocaleFlag` gave when the record was made
    int32_t uniFamilyLen;   ///< bytes of `uniFamilyName` with its terminator, or 0
    char* uniFamilyName;    ///< the localized family name, UTF-16 little-endian and two zero bytes, or null
    int32_t uniStyleLen;    ///< bytes of `uniStyleName` with its terminator, or 0
    char* uniStyleName;     ///< the localized style name, likewise
    int32_t styleFlags;     ///< FreeType's: 1 italic, 2 bold; of variable fonts the upper half counts named instances
    int64_t reserved;       ///< always 0
    uint8_t isSymbol;       ///< 1 where the face has a Microsoft symbol character map, else 0
    uint32_t charmapIndex;  ///< which character map that is, the last one of several; where the face has none the value
                            ///< of the faces before it in the same file, 0 in the first
};

/// The catalogue. Hosts use the one that `getInstance` gives; an object of their own, which takes 417 KiB, shares
/// FreeType and its failure mark with it.
///
/// How it starts, which hosts see in the fields: making the catalogue scans before FreeType is there, so nothing can
/// be opened and there are no records. That scan only lists the font folder and looks for no registered fonts. The
/// first query, or `InitializeFreeType`, starts FreeType and scans again. Where FreeType cannot be started, or that
/// scan finds no face, a mark is set for the life of the process: whatever is installed later, every query of every
/// object answers with nothing. Later queries read the records alone; no file is touched.
///
/// Where memory runs out a scan keeps what it has: a face that there was no memory for is left out with those behind it
/// in its file, a localized name that there was none for is null with length 0, and the files that could not be listed
/// are not read.
class VELLUM_API Fonts {
public:
    static constexpr int kMaxFaces = 4096;

    FontFaceRec faces[kMaxFaces];  ///< the records, up to the first whose `familyName` is null; all 4,096 may be in use
    void* unused[100];             ///< set to null at every scan; nothing reads them
    /// @name Classes of styles
    /// Indices into `faces`, in ascending order. The end mark is the value of `sentinel`; an array that holds all 4,096
    /// has none.
    /// @{
    uint32_t regular[kMaxFaces] = {};
    uint32_t bold[kMaxFaces] = {};
    uint32_t italic[kMaxFaces] = {};
    uint32_t boldItalic[kMaxFaces] = {};
    /// @}
    int32_t sentinel = -1;  ///< as an index 0xFFFFFFFF

    /// The catalogue of the process, made by the first call. It is destroyed when the process exits.
    static Fonts* getInstance();

    /// Scans: see how the catalogue starts.
    Fonts();
    Fonts(const Fonts&) = delete;
    /// Releases nothing, so lists and pointers into records outlive it.
    ~Fonts();
    /// Copies all bytes; both then name the same strings.
    Fonts& operator=(const Fonts& other);

    /// Starts FreeType and scans. True at once where FreeType has started already; false where the failure mark is set,
    /// now or earlier.
    bool InitializeFreeType();
    /// The scan. It replaces all records, without releasing the strings of those there were, and fills the classes of
    /// styles. A file found both in the font folder and among the registered fonts gets records twice. False, with no
    /// records and the classes left as they were, where the font folder holds no file or no memory is left for the
    /// listing. On Windows each scan that looks for registered fonts takes a device context of the screen, which is
    /// never released.
    bool InitFaceList();
    /// The font folder's files, a null-ended array for `FreeFontFileList`; null where there is none or no memory for
    /// it.
    char** GetFontFileList();
    /// Releases a list of paths and sets it to null.
    void FreeFontFileList(char*** list);
    /// Reads the file @p path and makes a record for each of its faces, from slot @p index on, until a face cannot be
    /// opened or has neither a Unicode nor a symbol character map. Returns the next free slot, 4,096 where all are
    /// used. Before FreeType has started, and with an @p index that is no slot, there are none.
    int SetupFontList(char** path, int index);
    /// The language of localized names, as the primary language identifier of Windows, from the environment variable
    /// KVO_LANG_SUB_DIR: "de" 7, "fr" 12, "it" 16, "ja" and "JaPCK" 17, "ko" 18, "pt" 22, "es" 10, "ru" 25, "ZhBIG5"
    /// and "ZhGBK" 4. Anything else, and no variable, is 9, for which no localized names are looked up.
    int GetFontLocaleFlag();
    /// The name @p nameId (1 family, 2 style) of @p face among the Unicode names of the Microsoft platform, UTF-16
    /// little-endian and two zero bytes: a new[] block of @p length bytes, which the caller releases with delete[].
    /// Null, with @p length 0, where there is none that is not empty. On Windows the DLL holds a C++ runtime of its
    /// own: there delete[] is right only in hosts that have the same C runtime as the DLL and no operator delete of
    /// their own; others keep the block. Lists are always released by the functions that the catalogue has for them.
    ///
    /// @p language is compared with the whole language identifier of the name, so with a primary language alone, as
    /// `GetFontLocaleFlag` gives it, names of a country's language (0x0411 for Japanese in Japan) are not found. A
    /// host may pass such an identifier itself. A name of an odd number of bytes keeps its length, with 0 in the place
    /// of the last byte.
    char* GetUnicodeForLanguageLite(FT_FaceRec_* face, int language, int nameId, int* length);
    /// Fills the four classes of styles from the records: bold by the style flag or by the word "bold" in the family's
    /// or the style's name, italic by the flag or by "italic" or "oblique" there, in any letter case.
    void ReduceFontListByStyles();
    /// Whether @p text contains @p part in any letter case. Of each the first 259 characters count.
    bool StrIStr(const char* text, const char* part);

    /// All face names in ascending byte-wise order. For a name that several faces have the first record counts; names
    /// compare byte by byte. Left out are empty names and those that hold a '?', which FreeType writes for what it
    /// cannot represent. The names of the stroke fonts stand among the others, without localized name and file, where
    /// no installed family is called the same. Null where the catalogue has failed or memory runs out.
    fnt_lst_t* GetFontFaceList();
    /// The styles of the face name @p face, in the order of the records, duplicates included and empty ones left out;
    /// the entries' other fields are null. A family with a '?' in its name is found here. Null where there are none
    /// (the stroke fonts have none), where the catalogue has failed and where memory runs out.
    fnt_lst_t* GetStylesForFontFace(char* face);
    /// Releases a list that one of the two gave. Does nothing for null.
    void DeleteFontFaceList(fnt_lst_t* list);
};

}  // namespace Vellum

#endif
