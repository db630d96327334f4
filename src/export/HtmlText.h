// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

/// Texts as HTML has them.
namespace HtmlText {

/// Appends a text so that it is read as it is, in an element or in an attribute in double quotes. Each line
/// end becomes LF. Characters that HTML does not allow become U+FFFD, which stands for one that is lost.
void append(std::string_view utf8, std::string& html);

/// The same for an element, with `<br/>` for each line end.
void appendLines(std::string_view utf8, std::string& html);

/// Appends a text that is a web address as a link to it, and every other text by its lines.
void appendLinked(std::string_view utf8, std::string& html);

} // namespace HtmlText
