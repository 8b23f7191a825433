#include "reading/Passage.hpp"
#include "text/PhraseText.hpp"

namespace karvel {

namespace {

constexpr std::string_view kStyle =
    "body{font-family:serif;margin:2em;max-width:60em}"
    ".r{display:flex;flex-wrap:wrap;gap:1em 1.2em;margin-bottom:1.6em}"
    ".p{text-align:center;max-width:12em}"
    ".t{font-style:italic}.p div:last-child{font-size:.85em}"
    ".d{color:#666;text-decoration:underline dotted}pre{white-space:pre-wrap;font:inherit}";

/// Below this confidence a word is shown as doubtful.
constexpr float kDoubtful = 0.5F;

std::string inHtml(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

}  // namespace

bool isDoubtful(const ReadWord& word)
{
    return !word.fixed && (!word.known || word.choice.confidence < kDoubtful);
}

std::string Passage::html(const std::function<std::string(const std::string&)>& picture) const
{
    std::string page =
        "<!DOCTYPE html>\n<html lang=\"it\"><head><meta charset=\"utf-8\"><title>Lettura</title><style>" +
        std::string(kStyle) + "</style></head>\n<body>\n<h1>Lettura</h1>\n<p>" + std::string(kProposal) +
        "</p>\n<div class=\"r\">\n";
    for (const ReadWord& word : words_) {
        page += "<div class=\"p\"><div>" + picture(codesOf(word)) + "</div><div class=\"t" +
                (isDoubtful(word) ? " d" : "") + "\">" + inHtml(printedReading(word)) + "</div><div>" +
                inHtml(word.choice.translation) + "</div></div>\n" +
                (endsLine(word) ? "</div>\n<div class=\"r\">\n" : "");
    }
    return page + "</div>\n<h2>Traslitterazione</h2>\n<pre class=\"t\">" + inHtml(transliteration()) +
           "</pre>\n<h2>Traduzione parola per parola</h2>\n<pre>" + inHtml(translation()) +
           "</pre>\n</body></html>\n";
}

std::string Passage::plainText() const
{
    std::string text = std::string(kProposal) + "\n\n";
    for (const ReadWord& word : words_) {
        text += unicodeOf(codesOf(word)) + "\t" + printedReading(word) + "\t" + word.choice.translation +
                (endsLine(word) ? "\n\n" : "\n");
    }
    return text + "\nTraslitterazione:\n" + transliteration() + "\n\nTraduzione parola per parola:\n" +
           translation() + "\n";
}

}  // namespace karvel
