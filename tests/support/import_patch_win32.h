// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SUPPORT_IMPORT_PATCH_WIN32_H
#define VELLUM_TESTS_SUPPORT_IMPORT_PATCH_WIN32_H

namespace support {

/// While one lives, the library's calls of a system function go to another function of the same type. In a program that
/// is linked with the library's objects those are the program's calls too. Where two live for one function, the younger
/// one must go first.
class ImportPatch {
public:
    /// Throws where the library has no import of that name.
    template <class F>
    ImportPatch(const char* function, F* replacement) : ImportPatch(function, reinterpret_cast<void*>(replacement)) {}
    ~ImportPatch();
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    /// What was called before.
    template <class F>
    F* Original() const {
        return reinterpret_cast<F*>(original_);
    }

private:
    ImportPatch(const char* function, void* replacement);

    void** slot_;
    void* original_;
};

}  // namespace support

#endif
