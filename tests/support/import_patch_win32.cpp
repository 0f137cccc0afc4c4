// SPDX-License-Identifier: MIT
#include "support/import_patch_win32.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace support {

namespace {

// A program as it lies in memory, where places are counted from its beginning.
class Image {
public:
    explicit Image(HMODULE module) : begin_(reinterpret_cast<std::byte*>(module)) {}

    template <class T>
    T* At(std::size_t place) const {
        return reinterpret_cast<T*>(begin_ + place);
    }

    // The address that calls of an imported function go through; null where there is none of that name.
    void** SlotOf(std::string_view function) const {
        const auto* headers = At<const IMAGE_NT_HEADERS>(static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
        const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        if (imports.VirtualAddress == 0) return nullptr;
        for (const auto* dll = At<const IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress); dll->Name != 0; ++dll) {
            if (void** slot = SlotOf(function, *dll)) return slot;
        }
        return nullptr;
    }

private:
    void** SlotOf(std::string_view function, const IMAGE_IMPORT_DESCRIPTOR& dll) const {
        auto** slot = At<void*>(dll.FirstThunk);
        const auto* thunk = At<const IMAGE_THUNK_DATA>(dll.OriginalFirstThunk);
        for (; thunk->u1.AddressOfData != 0; ++thunk, ++slot) {
            if (IMAGE_SNAP_BY_ORDINAL(thunk->u1.Ordinal)) continue;
            if (At<const IMAGE_IMPORT_BY_NAME>(thunk->u1.AddressOfData)->Name == function) return slot;
        }
        return nullptr;
    }

    std::byte* begin_;
};

// The library, or the program that holds its objects.
Image Library() {
    HMODULE library = GetModuleHandleA("Vellum.dll");
    return Image(library != nullptr ? library : GetModuleHandleA(nullptr));
}

// Addresses of imports may be read-only.
bool Write(void** slot, void* address) {
    DWORD protection = 0;
    if (VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection) == 0) return false;
    *slot = address;
    return VirtualProtect(slot, sizeof *slot, protection, &protection) != 0;
}

}  // namespace

ImportPatch::ImportPatch(const char* function, void* replacement) : slot_(Library().SlotOf(function)) {
    if (slot_ == nullptr) throw std::runtime_error(std::string("the library does not import ") + function);
    original_ = *slot_;
    if (!Write(slot_, replacement)) throw std::runtime_error("an import cannot be changed");
}

ImportPatch::~ImportPatch() { Write(slot_, original_); }

}  // namespace support
