// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_FONTS_FONT_MACHINE_H
#define VELLUM_TESTS_FONTS_FONT_MACHINE_H

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "vellum/fonts.h"

namespace fonts_test {

/// A machine with its own fonts, while one lives, and no language. Elsewhere than on Windows the environment names its
/// directories, those of a user among them. On Windows it is the machine itself, which must have been declared one for
/// tests (VELLUM_TEST_MACHINE): its fonts come and go.
class Machine {
public:
    Machine();
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// The font folder.
    std::string Folder() const;
    /// The directory of the registered fonts.
    std::string Elsewhere() const { return Path("elsewhere"); }
    /// A path in a directory of this machine alone.
    std::string Path(const std::string& name) const { return (root_ / name).make_preferred().string(); }

    /// The user's directory of fonts. There is none on Windows.
    std::string Home() const { return Path("home/fonts"); }
    /// Has fontconfig see the machine's own directories, and in the place of the system's ones others that hold no
    /// font. There is none on Windows.
    void HideSystem() const;

    /// Copies a test font into the font folder, under its name or another; returns its path.
    std::string Install(const std::string& font, const std::string& as = {}) const;
    /// The same, in a subdirectory where these are searched.
    std::string InstallBelow(const std::string& font) const;
    /// Copies a test font to where the registered fonts are, and registers it.
    std::string Register(const std::string& font, const std::string& as = {}) const;
    std::string Copy(const std::string& font, const std::string& path) const;
    void Write(const std::string& path, const std::string& bytes) const;
    /// Removes all that there is.
    void RemoveFonts() const;

private:
    std::filesystem::path root_;
};

/// The path of a checked-in font.
std::string TestFont(const std::string& name);
std::string ReadFile(const std::string& path);

void SetVariable(const char* name, const std::string& value);
void UnsetVariable(const char* name);

/// Releases the strings of the records, which the catalogue itself never does, and empties the slots.
void ReleaseRecords(Vellum::FontFaceRec* faces);

struct CatalogueDeleter {
    void operator()(Vellum::Fonts* fonts) const;
};

using Catalogue = std::unique_ptr<Vellum::Fonts, CatalogueDeleter>;

/// A catalogue besides the process's own one, with the records of the machine there is, which must have a font. It
/// does not matter what the process did before, as long as nothing has failed.
Catalogue ScannedCatalogue();

/// One without records.
Catalogue EmptyCatalogue();

size_t CountRecords(const Vellum::Fonts& fonts);
std::vector<std::string> FamilyNames(const Vellum::Fonts& fonts);
/// "family/style" of each record.
std::vector<std::string> FacesOf(const Vellum::Fonts& fonts);
std::vector<std::string> FilesOf(const Vellum::Fonts& fonts);
/// The indices up to the end mark.
std::vector<unsigned> IndicesOf(const uint32_t (&indices)[Vellum::Fonts::kMaxFaces]);

struct Entry {
    std::string name;
    std::optional<std::u16string> localized;
    std::optional<std::string> file;
};

bool operator==(const Entry& a, const Entry& b);
void PrintTo(const Entry& entry, std::ostream* out);

/// The entries of a list, which must not be null; releases it.
std::vector<Entry> TakeEntries(Vellum::Fonts& fonts, Vellum::fnt_lst_t* list);
/// Their names alone.
std::vector<std::string> TakeNames(Vellum::Fonts& fonts, Vellum::fnt_lst_t* list);

/// The names of the face list without the stroke fonts.
std::vector<std::string> InstalledFaces(Vellum::Fonts& fonts);
/// The styles of a face; empty for a null list.
std::vector<std::string> StylesOf(Vellum::Fonts& fonts, std::string face);

/// The font folder's files, without the leading @p prefix.
std::vector<std::string> FolderFiles(Vellum::Fonts& fonts, const std::string& prefix);

/// A collection of so many faces, all of them the font given.
std::string CollectionOf(const std::string& font, size_t faces);

}  // namespace fonts_test

#endif
