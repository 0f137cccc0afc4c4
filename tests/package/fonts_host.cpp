// SPDX-License-Identifier: MIT
#include <vellum/fonts.h>

#include <cstdio>

int main() {
    Vellum::Fonts* fonts = Vellum::Fonts::getInstance();
    Vellum::fnt_lst_t* faces = fonts->GetFontFaceList();
    for (Vellum::fnt_lst_t* face = faces; face != nullptr && face->face_name != nullptr; ++face)
        std::puts(face->face_name);
    fonts->DeleteFontFaceList(faces);
}
