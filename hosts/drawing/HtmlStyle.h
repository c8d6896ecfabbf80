// How pages look and what a click on them does.
#pragma once

#include <string_view>

namespace drawing {

/// The style sheet of all pages; no character in it needs escaping in XML.
std::string_view HtmlStyleSheet();

/// The script of all pages, likewise.
std::string_view HtmlScript();

}  // namespace drawing
