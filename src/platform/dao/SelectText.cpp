#include "platform/dao/SelectText.h"

#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "platform/dao/FieldType.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <span>

namespace tvx::dao {
namespace {

bool IsWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

char ClosingOf(char open) {
    if (open == '[') return ']';
    return open == '"' || open == '\'' ? open : '\0';
}

/// The place behind the quote or bracket that closes the one at `at`. A quote written twice closes nothing.
std::size_t EndOfQuoted(const std::string& sql, std::size_t at) {
    const char closing = ClosingOf(sql[at]);
    for (std::size_t end = sql.find(closing, at + 1); end != std::string::npos;
         end = sql.find(closing, end + 2))
        if (closing == ']' || end + 1 == sql.size() || sql[end + 1] != closing) return end + 1;
    throw DaoError(error::SyntaxError, "Syntax error in query: " + sql);
}

/// The pieces of a select: words, quoted or bracketed names, and single characters; blanks vanish between
/// words and are kept as one blank in front of the piece that they precede.
struct Piece {
    std::string text;
    bool word = false;
    bool blankBefore = false;
};

std::vector<Piece> Cut(const std::string& sql) {
    std::vector<Piece> pieces;
    bool blank = false;
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        if (std::isspace(static_cast<unsigned char>(c)) != 0) {
            blank = true;
            ++at;
            continue;
        }
        std::size_t end = at + 1;
        const bool word = IsWordCharacter(c);
        if (ClosingOf(c) != '\0') {
            end = EndOfQuoted(sql, at);
        } else if (word) {
            while (end < sql.size() && IsWordCharacter(sql[end])) ++end;
        }
        pieces.push_back({sql.substr(at, end - at), word, blank});
        blank = false;
        at = end;
    }
    return pieces;
}

bool Is(const Piece& piece, std::string_view word) {
    return piece.word && EqualsNoCase(piece.text, word);
}

/// A text between double quotes as engines want it; between those they would look for a field of that name.
std::string SingleQuoted(const std::string& doubleQuoted) {
    std::string text = "'";
    for (std::size_t i = 1; i + 1 < doubleQuoted.size(); ++i) {
        if (doubleQuoted[i] == '"') ++i; // the first of a pair that means one
        text += doubleQuoted[i];
        if (doubleQuoted[i] == '\'') text += '\'';
    }
    return text + "'";
}

void Append(std::string& text, const Piece& piece) {
    if (piece.blankBefore && !text.empty()) text += ' ';
    if (Is(piece, "true"))
        text += "-1";
    else if (Is(piece, "false"))
        text += "0";
    else if (piece.text.front() == '"')
        text += SingleQuoted(piece.text);
    else
        text += piece.text;
}

bool IsOneOf(const Piece& piece, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return Is(piece, word); });
}

/// The words from ORDER BY on, each field in the order of names.
void AppendOrder(std::string& text, std::span<const Piece> pieces) {
    bool open = false; // behind a field whose order is not told yet
    const auto close = [&] {
        if (open) text += std::string(" ") + NameOrderWord;
        open = false;
    };
    for (const Piece& piece : pieces) {
        if (piece.text == ";") continue;
        const bool ends = piece.text == "," || IsOneOf(piece, {"asc", "desc"});
        if (ends) close();
        Append(text, piece);
        open = open || !(ends || IsOneOf(piece, {"order", "by"}));
    }
    close();
}

std::string WithoutBrackets(const std::string& name) {
    return name.front() == '[' ? name.substr(1, name.size() - 2) : name;
}

} // namespace

bool IsSelect(const std::string& text) {
    constexpr std::string_view word = "SELECT";
    const std::size_t at = text.find_first_not_of(" \t\r\n");
    if (at == std::string::npos || !EqualsNoCase(text.substr(at, word.size()), word)) return false;
    return at + word.size() < text.size() &&
           std::isspace(static_cast<unsigned char>(text[at + word.size()])) != 0;
}

std::string KeyName(const std::string& key) {
    return key == RowKeyWord ? key : Bracketed(key);
}

std::string InDialect(const std::string& sql, const Dialect& dialect) {
    std::string text;
    std::size_t marks = 0;
    for (const Piece& piece : Cut(sql)) {
        if (piece.blankBefore && !text.empty()) text += ' ';
        if (piece.text.front() == '[')
            text += dialect.Name(WithoutBrackets(piece.text));
        else if (piece.text == "?")
            text += dialect.Mark(++marks);
        else if (piece.word && piece.text == NameOrderWord)
            text += dialect.NameOrder();
        else
            text += piece.word && piece.text == RowKeyWord ? dialect.RowKey() : piece.text;
    }
    return text;
}

SelectText ParseSelect(const std::string& sql) {
    const std::vector<Piece> pieces = Cut(sql);
    SelectText select;
    std::size_t at = 1;
    for (; at < pieces.size() && !Is(pieces[at], "from"); ++at) Append(select.columns, pieces[at]);
    if (at + 1 >= pieces.size() || select.columns.empty())
        throw DaoError(error::SyntaxError, "Syntax error in query: " + sql);
    select.table = WithoutBrackets(pieces[at + 1].text);
    for (at += 2; at < pieces.size() && !Is(pieces[at], "order"); ++at)
        if (pieces[at].text != ";") Append(select.rest, pieces[at]);
    select.ordered = at < pieces.size();
    AppendOrder(select.rest, std::span(pieces).subspan(at));
    return select;
}

std::string SelectText::Runnable(const std::vector<std::string>& keys) const {
    std::string list;
    for (const std::string& key : keys) list += KeyName(key) + ", ";
    std::string sql = "SELECT " + list + columns + " FROM " + Bracketed(table) + " " + rest;
    // Rows that the order leaves equal come in the order of the key, so that the same data gives the same
    // list.
    for (std::size_t i = 0; i < keys.size(); ++i)
        sql += (ordered || i > 0 ? ", " : " ORDER BY ") + KeyName(keys[i]);
    return sql;
}

} // namespace tvx::dao
