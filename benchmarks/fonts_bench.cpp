// SPDX-License-Identifier: MIT
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>

#include FT_FREETYPE_H

#include "suite.h"
#include "vellum/fonts.h"

namespace VellumBench {
namespace {

namespace fs = std::filesystem;

/// A little less than what the catalogue takes from the font folder.
constexpr size_t kFullFolder = 1100;

/// A font folder of the machine's fonts, over and over until there are so many files, and a configuration that has
/// fontconfig's usual rules and that folder alone.
class Machine {
public:
    Machine(std::string machineName, size_t fileCount) : name(std::move(machineName)), files(fileCount) {}
    ~Machine() {
        std::error_code ignored;
        if (!root.empty()) fs::remove_all(root, ignored);
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// Makes it the machine that this process sees.
    void Enter() {
        if (root.empty()) Make();
        setenv("XDG_DATA_DIRS", root.c_str(), 1);
        setenv("FONTCONFIG_FILE", (root / "fonts.conf").c_str(), 1);
    }
    void EmptyCache() const { fs::remove_all(root / "cache"); }
    std::string NameOf(const std::string& contender) const { return "Fonts/" + name + '/' + contender; }

    const std::string name;

private:
    static std::vector<fs::path> SystemFonts() {
        const std::set<std::string> endings = {".ttf", ".ttc", ".TTF", ".TTC"};
        std::vector<fs::path> fonts;
        for (const auto& entry : fs::recursive_directory_iterator("/usr/share/fonts")) {
            if (entry.is_regular_file() && endings.count(entry.path().extension()) > 0) fonts.push_back(entry);
        }
        std::sort(fonts.begin(), fonts.end());
        return fonts;
    }

    void Make() {
        const std::vector<fs::path> fonts = SystemFonts();
        if (fonts.empty()) Abort(name + ": there are no fonts in /usr/share/fonts");
        std::string path = (fs::temp_directory_path() / "vellum-bench-XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr) Abort("no scratch directory");
        root = path;
        fs::create_directory(root / "fonts");
        for (size_t i = 0; i < files; ++i) {
            const fs::path& font = fonts[i % fonts.size()];
            Link(font, root / "fonts" / (std::to_string(i) + font.filename().string()));
        }
        std::ofstream(root / "fonts.conf")
            << "<fontconfig><include>/etc/fonts/conf.d</include><dir>" << (root / "fonts").string()
            << "</dir><cachedir>" << (root / "cache").string() << "</cachedir></fontconfig>";
    }

    static void Link(const fs::path& from, const fs::path& to) {
        std::error_code error;
        fs::create_hard_link(from, to, error);
        if (error) fs::copy_file(from, to);
    }

    const size_t files;
    fs::path root;
};

/// What the first query does once FreeType has started, which takes 0.04 ms and is left out for all contenders: the
/// listing that the constructor makes before, the scan and the list. An object of our own is scanned, as often as the
/// benchmark asks, because the process's own one is scanned by the first query alone; the scan is the same. The
/// records' strings are never released, here as there.
class VellumCatalogue {
public:
    void Start() {
        if (!fonts.InitializeFreeType()) Abort("the catalogue does not start");
    }
    void Query() {
        char** files = fonts.GetFontFileList();
        fonts.FreeFontFileList(&files);
        fonts.InitFaceList();
        fonts.DeleteFontFaceList(fonts.GetFontFaceList());
    }
    std::vector<std::string> Files() {
        std::vector<std::string> files;
        for (const Vellum::FontFaceRec* face = fonts.faces; face->filePath != nullptr; ++face) {
            if (files.empty() || files.back() != face->filePath) files.emplace_back(face->filePath);
        }
        return files;
    }
    size_t Faces() const {
        return static_cast<size_t>(std::find_if(fonts.faces, std::end(fonts.faces),
                                                [](const auto& face) { return face.filePath == nullptr; }) -
                                   fonts.faces);
    }

private:
    Vellum::Fonts& fonts = *Vellum::Fonts::getInstance();
};

/// Opens and closes every face of the files, which is the least that a catalogue made by FreeType does.
class FreeTypeLoop {
public:
    FreeTypeLoop() {
        if (FT_Init_FreeType(&library) != 0) Abort("FreeType does not start");
    }
    ~FreeTypeLoop() { FT_Done_FreeType(library); }
    FreeTypeLoop(const FreeTypeLoop&) = delete;
    FreeTypeLoop& operator=(const FreeTypeLoop&) = delete;

    /// How many faces there are.
    size_t Open(const std::vector<std::string>& files) const {
        size_t faces = 0;
        for (const std::string& file : files) {
            FT_Long count = 1;
            for (FT_Long i = 0; i < count; ++i) {
                FT_Face face = nullptr;
                if (FT_New_Face(library, file.c_str(), i, &face) != 0) break;
                count = face->num_faces;
                FT_Done_Face(face);
                ++faces;
            }
        }
        return faces;
    }

private:
    FT_Library library = nullptr;
};

/// fontconfig's scan of the same folder; how many fonts it knows then.
size_t ScanByFontconfig() {
    FcConfig* config = FcConfigCreate();
    FcConfigParseAndLoad(config, nullptr, FcFalse);
    FcConfigBuildFonts(config);
    const FcFontSet* fonts = FcConfigGetFonts(config, FcSetSystem);
    const size_t count = fonts == nullptr ? 0 : static_cast<size_t>(fonts->nfont);
    FcConfigDestroy(config);
    return count;
}

class Subject {
public:
    Subject(const std::string& name, size_t fileCount) : machine(name, fileCount) {}

    void Register(TargetReport& report, double floorLimit, double fontconfigLimit) {
        Add("vellum", [this] {
            catalogue->Query();
            return catalogue->Faces();
        });
        Add("freetype_loop", [this] { return loop->Open(files); });
        Add("fontconfig_cold", [this] {
            machine.EmptyCache();
            return ScanByFontconfig();
        });
        Add("fontconfig_cached", ScanByFontconfig);
        const std::string what = "First query, " + machine.name + " folder: ";
        report.Add({what + "FreeType alone",
                    machine.NameOf("vellum"),
                    {machine.NameOf("freetype_loop")},
                    Bound::TimesFloor,
                    floorLimit});
        report.Add({what + "fontconfig's scan",
                    machine.NameOf("vellum"),
                    {machine.NameOf("fontconfig_cold")},
                    Bound::TimesFaster,
                    fontconfigLimit});
        report.Add({what + "fontconfig's cache",
                    machine.NameOf("vellum"),
                    {machine.NameOf("fontconfig_cached")},
                    Bound::TimesFaster,
                    kForInformation});
    }

private:
    void Add(const std::string& contender, const std::function<size_t()>& run) {
        VellumBench::Register({machine.NameOf(contender), [this, contender, run] { return Check(contender, run()); },
                               [this] { SetUp(); }, run});
    }

    void SetUp() {
        machine.Enter();
        if (!catalogue) {
            catalogue = std::make_unique<VellumCatalogue>();
            loop = std::make_unique<FreeTypeLoop>();
            catalogue->Start();
            catalogue->Query();
            files = catalogue->Files();
        }
    }

    /// Of variable fonts fontconfig counts the instances too.
    std::string Check(const std::string& contender, size_t found) const {
        const size_t faces = loop->Open(files);
        const bool isFontconfig = contender.rfind("fontconfig", 0) == 0;
        if (isFontconfig ? found < faces : found != faces) {
            Abort(machine.NameOf(contender) + ": found " + std::to_string(found) + " faces of " +
                  std::to_string(faces));
        }
        return std::to_string(found) + " faces";
    }

    Machine machine;
    std::unique_ptr<VellumCatalogue> catalogue;
    std::unique_ptr<FreeTypeLoop> loop;
    std::vector<std::string> files;
};

}  // namespace

void RegisterFonts(TargetReport& report) {
    static Subject full("full", kFullFolder);
    static Subject small("small", 22);
    full.Register(report, 1.15, 2);
    small.Register(report, kForInformation, kForInformation);
}

}  // namespace VellumBench
