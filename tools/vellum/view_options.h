// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_VIEW_OPTIONS_H
#define VELLUM_TOOL_VIEW_OPTIONS_H

#include <string>

#include "view.h"

namespace tool {

class Verb;

/// The options by which the user says what part of a drawing a picture shows. They must outlive the verb that they are
/// added to.
class ViewOptions {
public:
    /// @p subject is what a view that is not asked for shows, in words.
    void AddTo(Verb& verb, const std::string& subject);

    /// What the command line says. Each throws `Error`, naming the option, where that cannot be read.
    ViewRequest Request() const;
    PictureSize Size() const;

private:
    // As the command line gives them; an empty text stands for an option that is not there.
    std::string center_;
    std::string width_;
    std::string rotation_ = "0";
    std::string size_ = "1200x800";
};

}  // namespace tool

#endif
