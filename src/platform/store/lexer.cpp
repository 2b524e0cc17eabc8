// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/lexer.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "platform/error.h"

namespace platform {

namespace {

constexpr int kDeepest = 200;

[[noreturn]] void Refuse(const std::string& why) {
    throw Error(errors::BadStatement, "Reading the statement failed: " + why + ".", "lexer");
}

enum class Kind { Keyword, Name, Text, Number, Symbol, End };

struct Token {
    Kind kind = Kind::End;
    std::string sql;  // as the store writes it; keywords in capitals

    bool Is(std::string_view symbol) const { return kind == Kind::Symbol && sql == symbol; }
};

/// The words that are no operands: what follows one begins an expression of its own.
constexpr std::array<std::string_view, 34> kKeywords = {
    "ALL",   "AND",      "AS",     "ASC",   "BETWEEN", "BY",     "CROSS", "DEFAULT", "DELETE",
    "DESC",  "DISTINCT", "EXISTS", "FROM",  "GROUP",   "HAVING", "IN",    "INNER",   "INSERT",
    "INTO",  "IS",       "JOIN",   "LEFT",  "LIKE",    "NOT",    "ON",    "OR",      "ORDER",
    "OUTER", "SELECT",   "SET",    "UNION", "UPDATE",  "VALUES", "WHERE"};

static_assert(std::is_sorted(kKeywords.begin(), kKeywords.end()));

bool IsKeyword(std::string_view word) {
    return std::binary_search(kKeywords.begin(), kKeywords.end(), word);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string Capitals(std::string_view word) {
    std::string upper(word);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 32);
        }
    }
    return upper;
}

void CheckEncoding(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int64_t>(text.size());
    for (std::int64_t i = 0; i < length;) {
        UChar32 c;
        U8_NEXT(bytes, i, length, c);
        if (c < 0) {
            Refuse("it is not in UTF-8");
        }
        if (c == 0) {
            Refuse("it holds a NUL character");
        }
    }
}

/// Cuts the text into tokens.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : text_(text) {}

    std::vector<Token> Scan() {
        std::vector<Token> tokens;
        for (;;) {
            tokens.push_back(Next());
            if (tokens.back().kind == Kind::End) {
                return tokens;
            }
        }
    }

  private:
    char Peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

    Token Next() {
        while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) != std::string_view::npos) {
            ++at_;
        }
        if (at_ == text_.size()) {
            return {};
        }
        const char c = Peek();
        if (c == '\'' || c == '"') {
            return Literal(c);
        }
        if (c == '[') {
            return Bracketed();
        }
        if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
            return Number();
        }
        if (NameLength(at_, true) > 0) {
            return Word();
        }
        return Symbol();
    }

    Token Literal(char quote) {
        std::string sql = "'";
        for (++at_; at_ < text_.size(); ++at_) {
            const char c = text_[at_];
            if (c == quote) {
                if (Peek(1) != quote) {
                    ++at_;
                    return {Kind::Text, sql + '\''};
                }
                ++at_;
            }
            sql += c;
            if (c == '\'') {
                sql += c;
            }
        }
        Refuse("a quotation mark is not closed");
    }

    Token Bracketed() {
        const auto end = text_.find(']', at_);
        if (end == std::string_view::npos) {
            Refuse("a square bracket is not closed");
        }
        const auto name = text_.substr(at_ + 1, end - at_ - 1);
        const auto bad = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '['; };
        if (name.empty() || std::any_of(name.begin(), name.end(), bad)) {
            Refuse("the square brackets hold no name");
        }
        at_ = end + 1;
        return {Kind::Name, "[" + std::string(name) + "]"};
    }

    Token Number() {
        const auto begin = at_;
        const auto digits = [&] {
            while (IsDigit(Peek())) {
                ++at_;
            }
        };
        digits();
        if (Peek() == '.') {
            ++at_;
            digits();
        }
        if (Peek() == 'e' || Peek() == 'E') {
            const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
            if (IsDigit(Peek(1 + sign))) {
                at_ += 1 + sign;
                digits();
            }
        }
        if (NameLength(at_, false) > 0 || Peek() == '.') {
            Refuse("a number is followed by a letter or a point");
        }
        return {Kind::Number, std::string(text_.substr(begin, at_ - begin))};
    }

    /// How many bytes the character of a name at the place takes; 0 for any other character.
    std::size_t NameLength(std::size_t at, bool first) const {
        if (at >= text_.size()) {
            return 0;
        }
        const char c = text_[at];
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (!first && IsDigit(c))) {
            return 1;
        }
        if (static_cast<unsigned char>(c) < 0x80) {
            return 0;
        }
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(text_.data());
        const auto length = static_cast<std::int64_t>(text_.size());
        auto next = static_cast<std::int64_t>(at);
        UChar32 point;
        U8_NEXT(bytes, next, length, point);
        const bool mark = !first && u_charType(point) == U_NON_SPACING_MARK;
        return u_isalpha(point) || mark ? static_cast<std::size_t>(next) - at : 0;
    }

    Token Word() {
        const auto begin = at_;
        for (std::size_t bytes = NameLength(at_, true); bytes > 0; bytes = NameLength(at_, false)) {
            at_ += bytes;
        }
        const auto word = text_.substr(begin, at_ - begin);
        auto upper = Capitals(word);
        // With it the store would take its own LIKE, which knows case in ASCII only.
        if (upper == "ESCAPE") {
            Refuse("LIKE has no ESCAPE");
        }
        if (IsKeyword(upper)) {
            return {Kind::Keyword, std::move(upper)};
        }
        return {Kind::Name, std::string(word)};
    }

    Token Symbol() {
        const auto pair = text_.substr(at_, 2);
        if (pair == "--" || pair == "/*") {
            Refuse("it holds a comment");
        }
        if (pair == "<=" || pair == ">=" || pair == "<>") {
            at_ += 2;
            return {Kind::Symbol, std::string(pair)};
        }
        const char c = Peek();
        if (std::string_view("(),.;=<>+-*/&").find(c) == std::string_view::npos) {
            Refuse(
                "it holds a character that has no meaning outside of quotes; a quotation mark (') in a "
                "text ends the text");
        }
        ++at_;
        return {Kind::Symbol, std::string(1, c)};
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

/// Writes the tokens anew, the joining operators as the store's own.
class Writer {
  public:
    explicit Writer(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    std::string Statement() {
        const Token& first = Now();
        if (first.kind == Kind::End) {
            Refuse("the text is empty");
        }
        if (first.kind != Kind::Keyword || (first.sql != "SELECT" && first.sql != "INSERT" &&
                                            first.sql != "UPDATE" && first.sql != "DELETE")) {
            Refuse("it is no SELECT, INSERT, UPDATE or DELETE");
        }
        std::string sql = Group();
        if (Now().Is(";")) {
            ++at_;
            if (Now().kind != Kind::End) {
                Refuse("a second statement stands behind it");
            }
        }
        if (Now().kind != Kind::End) {
            Refuse("a bracket is closed that was not opened");
        }
        return sql;
    }

  private:
    struct Expression {
        std::string sql;
        bool number = false;   // "+" on it adds
        bool literal = false;  // never Null
    };

    const Token& Now(std::size_t ahead = 0) const {
        return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
    }
    std::string Take() { return tokens_[at_++].sql; }

    /// Everything up to the closing bracket or the end of the statement, which stays.
    std::string Group() {
        if (++depth_ > kDeepest) {
            Refuse("its brackets are nested too deeply");
        }
        std::string sql;
        while (Now().kind != Kind::End && !Now().Is(")") && !Now().Is(";")) {
            if (!sql.empty()) {
                sql += ' ';
            }
            if (Now().Is("&") || Now().Is("/")) {
                Refuse("nothing stands before the operator " + Now().sql);
            }
            if (Now().kind == Kind::Keyword && Now().sql == "IN" && Now(1).Is("(") && Now(2).Is(")")) {
                Refuse("the list of IN is empty");
            }
            const bool operand =
                Now().kind == Kind::Name || Now().kind == Kind::Text || Now().kind == Kind::Number;
            sql += operand || Now().Is("(") || Now().Is("+") || Now().Is("-") ? Joined() : Take();
        }
        --depth_;
        return sql;
    }

    /// Operands with "&" between them: the weakest of the operators handled here.
    std::string Joined() {
        Expression left = Sum();
        if (!Now().Is("&")) {
            return std::move(left.sql);
        }
        const auto part = [](Expression& expression) {
            return expression.literal ? std::move(expression.sql) : "ifnull(" + expression.sql + ", '')";
        };
        std::string sql = part(left);
        while (Now().Is("&")) {
            ++at_;
            Expression right = Sum();
            sql += " || " + part(right);
        }
        return sql;
    }

    Expression Sum() {
        Expression sum = Product();
        while (Now().Is("+") || Now().Is("-")) {
            const std::string sign = Take();
            const Expression right = Product();
            const bool adds = sign == "-" || sum.number || right.number;
            sum.sql += (adds ? " " + sign + " " : " || ") + right.sql;
            sum.number = adds;
            sum.literal = false;
        }
        return sum;
    }

    Expression Product() {
        Expression product = Operand();
        while (Now().Is("*") || Now().Is("/")) {
            product.sql += " " + Take() + " ";
            product.sql += Operand().sql;
            product.number = true;
            product.literal = false;
        }
        return product;
    }

    Expression Operand() {
        std::string signs;
        while (Now().Is("+") || Now().Is("-")) {
            signs += Take() + " ";
        }
        Expression operand;
        switch (Now().kind) {
            case Kind::Number:
                operand.number = true;
                [[fallthrough]];
            case Kind::Text:
                operand.literal = true;
                operand.sql = Take();
                break;
            case Kind::Name:
                operand.sql = Name();
                break;
            default:
                if (!Now().Is("(")) {
                    Refuse("an operator stands without what it works on");
                }
                operand.sql = Bracketed();
        }
        if (!signs.empty()) {
            operand.sql.insert(0, signs);
            operand.number = true;
        }
        return operand;
    }

    std::string Name() {
        std::string name = Take();
        while (Now().Is(".") &&
               (Now(1).kind == Kind::Name || Now(1).kind == Kind::Keyword || Now(1).Is("*"))) {
            name += Take();
            name += Take();
        }
        if (Now().Is("(")) {
            name += Bracketed();
        }
        return name;
    }

    std::string Bracketed() {
        ++at_;
        std::string sql = "(" + Group();
        if (!Now().Is(")")) {
            Refuse("a bracket is not closed");
        }
        ++at_;
        sql += ')';
        return sql;
    }

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace

std::string ToStoreSql(std::string_view statement) {
    CheckEncoding(statement);
    return Writer(Scanner(statement).Scan()).Statement();
}

}  // namespace platform
