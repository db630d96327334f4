// SPDX-License-Identifier: GPL-3.0-or-later

#include "PageText.h"

#include <algorithm>
#include <array>
#include <libxml/HTMLparser.h>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

std::string_view nameOf(const xmlNode& node)
{
    return node.name == nullptr ? std::string_view() : reinterpret_cast<const char*>(node.name);
}

bool isUnseen(const xmlNode& node)
{
    constexpr std::array<std::string_view, 4> unseen{"noscript", "script", "style", "template"};
    return node.type == XML_ELEMENT_NODE && std::ranges::count(unseen, nameOf(node)) > 0;
}

/// Whether what stands in the element belongs to the same word as what stands beside it.
bool isWithinWords(const xmlNode& node)
{
    constexpr std::array<std::string_view, 32> names{
        "a",    "abbr",   "acronym", "b",   "bdi", "bdo",  "big",  "cite", "code", "del",  "dfn",
        "em",   "font",   "i",       "ins", "kbd", "mark", "nobr", "q",    "s",    "samp", "small",
        "span", "strike", "strong",  "sub", "sup", "tt",   "u",    "var",  "wbr",  "blink"};
    return std::ranges::count(names, nameOf(node)) > 0;
}

void addPictureText(QByteArray& text, xmlNode& node)
{
    if (nameOf(node) != "img") return;
    xmlChar* alternative = xmlGetProp(&node, reinterpret_cast<const xmlChar*>("alt"));
    if (alternative == nullptr) return;
    text += reinterpret_cast<const char*>(alternative);
    text += ' ';
    xmlFree(alternative);
}

void enter(QByteArray& text, xmlNode& node)
{
    if (node.type == XML_TEXT_NODE || node.type == XML_CDATA_SECTION_NODE)
        text += reinterpret_cast<const char*>(node.content);
    if (node.type != XML_ELEMENT_NODE || isWithinWords(node)) return;
    text += ' ';
    addPictureText(text, node);
}

void leave(QByteArray& text, const xmlNode& node)
{
    if (node.type == XML_ELEMENT_NODE && !isWithinWords(node)) text += ' ';
}

/// The parser mends what is wrong in a page, as browsers do.
Document parsed(const QByteArray& source)
{
    constexpr int options = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                            HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC | HTML_PARSE_COMPACT;
    const std::unique_ptr<htmlParserCtxt, decltype(&htmlFreeParserCtxt)> parser(htmlNewParserCtxt(),
                                                                                &htmlFreeParserCtxt);
    if (!parser) throw std::bad_alloc();
    parser->options |= XML_PARSE_HUGE; // else it ends at 256 elements within each other
    Document document(htmlCtxtReadMemory(parser.get(), source.constData(), static_cast<int>(source.size()),
                                         nullptr, "UTF-8", options),
                      &xmlFreeDoc);
    if (!document) throw std::bad_alloc();
    return document;
}

} // namespace

QByteArray pageText(const QString& page)
{
    QByteArray source = page.toUtf8();
    source.replace('\0', ' '); // where the parser would end
    if (source.size() > std::numeric_limits<int>::max()) throw std::bad_alloc();
    const Document document = parsed(source);
    QByteArray text;
    // in steps: a page may nest its elements deeper than the stack
    xmlNode* const top = reinterpret_cast<xmlNode*>(document.get());
    for (xmlNode* node = document->children; node != nullptr && node != top;) {
        enter(text, *node);
        const bool hasSeenParts = node->type == XML_ELEMENT_NODE && !isUnseen(*node);
        if (hasSeenParts && node->children != nullptr) {
            node = node->children;
            continue;
        }
        while (node != top && node->next == nullptr) {
            leave(text, *node);
            node = node->parent;
        }
        if (node == top) break;
        leave(text, *node);
        node = node->next;
    }
    return text;
}
