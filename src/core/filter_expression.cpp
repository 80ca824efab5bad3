#include "core/filter_expression.h"

#include <QSet>
#include <QStringView>
#include <cmath>

namespace orvo {

// A like pattern cut at its wildcards: "24*" is one segment anchored at the start.
struct FilterExpression::LikeParts {
    QVector<QString> segments;
    bool anchoredStart = true;
    bool anchoredEnd = true;
    int minLength = 0;

    static LikeParts Of(const QString& pattern) {
        LikeParts p;
        QString current;
        bool any = false;
        for (QChar c : pattern) {
            if (c == QLatin1Char('*') || c == QLatin1Char('%')) {
                if (!any && current.isEmpty() && p.segments.isEmpty())
                    p.anchoredStart = false;
                if (!current.isEmpty())
                    p.segments.append(current);
                current.clear();
                any = true;
                p.anchoredEnd = false;
            } else {
                current.append(c);
                p.anchoredEnd = true;
            }
        }
        if (!current.isEmpty())
            p.segments.append(current);
        if (p.segments.isEmpty() && any)
            p.anchoredStart = p.anchoredEnd = false;
        for (const QString& s : p.segments)
            p.minLength += s.size();
        return p;
    }

    bool Matches(QStringView v) const {
        if (v.size() < minLength)
            return false;
        if (segments.isEmpty())
            return !anchoredStart ? true : v.isEmpty();
        if (segments.size() == 1 && anchoredStart && anchoredEnd)
            return v.compare(segments.first(), Qt::CaseInsensitive) == 0;
        qsizetype pos = 0;
        qsizetype first = 0;
        qsizetype last = segments.size();
        if (anchoredStart) {
            if (!v.startsWith(segments.first(), Qt::CaseInsensitive))
                return false;
            pos = segments.first().size();
            first = 1;
        }
        qsizetype endLimit = v.size();
        if (anchoredEnd) {
            const QString& tail = segments.last();
            if (!v.endsWith(tail, Qt::CaseInsensitive))
                return false;
            endLimit = v.size() - tail.size();
            if (endLimit < pos)
                return false;
            last = segments.size() - 1;
        }
        for (qsizetype i = first; i < last; ++i) {
            const qsizetype at = v.left(endLimit).indexOf(segments[i], pos, Qt::CaseInsensitive);
            if (at < 0)
                return false;
            pos = at + segments[i].size();
        }
        return pos <= endLimit;
    }
};

struct FilterExpression::Node {
    enum class Type { And, Or, Not, Compare };
    // How a comparison reads the row's value: as text, as a number, as a date key,
    // through Value::compare (Variant fields), as a like pattern, or for Null.
    enum class Mode { Text, Number, Date, Dynamic, Like, IsNull, NotNull };
    enum class Op { Eq, Ne, Lt, Gt, Le, Ge };

    Type type = Type::Compare;
    std::vector<int> children;
    int field = -1;
    Mode mode = Mode::Dynamic;
    Op op = Op::Eq;
    bool negate = false; // Not Like: still false for a Null value
    double number = 0;
    qint64 dateKey = 0;
    QString text;
    Value operand;
    LikeParts like;
};

namespace {

using Node = FilterExpression::Node;

qint64 DateKey(const QDate& d, int msecs = 0) {
    return d.toJulianDay() * 86400000LL + msecs;
}

// The date key of a row value, false when it holds no date.
bool ValueDateKey(const Value& v, qint64* key) {
    switch (v.kind()) {
    case Value::Kind::Date:
        *key = DateKey(v.toDate());
        return true;
    case Value::Kind::DateTime: {
        const QDateTime dt = v.toDateTime();
        *key = DateKey(dt.date(), dt.time().msecsSinceStartOfDay());
        return true;
    }
    case Value::Kind::Text: {
        bool ok = false;
        const QDateTime dt = v.toDateTime(&ok);
        if (ok)
            *key = DateKey(dt.date(), dt.time().msecsSinceStartOfDay());
        return ok;
    }
    default:
        return false;
    }
}

bool ApplyOp(Node::Op op, int c) {
    switch (op) {
    case Node::Op::Eq:
        return c == 0;
    case Node::Op::Ne:
        return c != 0;
    case Node::Op::Lt:
        return c < 0;
    case Node::Op::Gt:
        return c > 0;
    case Node::Op::Le:
        return c <= 0;
    case Node::Op::Ge:
        return c >= 0;
    }
    return false;
}

template <typename T> int Cmp3(T a, T b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

enum class Tok { End, Name, String, Number, DateLit, LParen, RParen, Comma, Op };

struct Token {
    Tok type = Tok::End;
    int pos = 0;    // 0-based start in the filter text
    QString source; // the token as written
    QString text;   // Name: the name; String/DateLit: the content
    double number = 0;
};

bool IsNameStart(QChar c) {
    return c.isLetter() || c == QLatin1Char('_');
}

bool IsNamePart(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

} // namespace

class FilterParser {
public:
    FilterParser(const QString& text, const FieldDefs& fields, FilterExpression* out)
        : text_(text), fields_(fields), out_(out) {}

    bool Run() {
        if (!lex())
            return false;
        if (tokens_.size() == 1)
            return true; // nothing but the end: every row passes
        const int root = parseOr();
        if (root < 0)
            return false;
        const Token& t = peek();
        if (t.type != Tok::End) {
            if (t.type == Tok::RParen)
                return fail(QStringLiteral("nelauktas uždarantis skliaustas ')'"), t.pos);
            return fail(QStringLiteral("nelauktas tekstas %1 po sąlygos").arg(describe(t)), t.pos);
        }
        out_->root_ = root;
        return true;
    }

    QString error;
    int errorPos = 0;

private:
    bool fail(const QString& what, int pos) {
        if (error.isEmpty()) {
            error = what;
            errorPos = pos;
        }
        return false;
    }
    int failNode(const QString& what, int pos) {
        fail(what, pos);
        return -1;
    }

    static QString quoted(const QString& s) { return QLatin1Char('\'') + s + QLatin1Char('\''); }
    QString describe(const Token& t) const {
        if (t.type == Tok::End)
            return QStringLiteral("filtro pabaiga");
        if (t.type == Tok::String)
            return t.source; // already in its quotes
        return quoted(t.source);
    }

    // --- Lexer -------------------------------------------------------------------------
    bool lex() {
        const int n = text_.size();
        int i = 0;
        while (true) {
            while (i < n && text_.at(i).isSpace())
                ++i;
            Token t;
            t.pos = i;
            if (i >= n) {
                tokens_.append(t);
                return true;
            }
            const QChar c = text_.at(i);
            if (c == QLatin1Char('(') || c == QLatin1Char(')') || c == QLatin1Char(',')) {
                t.type = c == QLatin1Char('(')   ? Tok::LParen
                         : c == QLatin1Char(')') ? Tok::RParen
                                                 : Tok::Comma;
                ++i;
            } else if (c == QLatin1Char('=') || c == QLatin1Char('<') || c == QLatin1Char('>') ||
                       c == QLatin1Char('!')) {
                t.type = Tok::Op;
                QString op(c);
                if (i + 1 < n) {
                    const QChar d = text_.at(i + 1);
                    if ((c == QLatin1Char('<') &&
                         (d == QLatin1Char('>') || d == QLatin1Char('='))) ||
                        (c == QLatin1Char('>') && d == QLatin1Char('=')) ||
                        (c == QLatin1Char('!') && d == QLatin1Char('=')))
                        op.append(d);
                }
                if (op == QLatin1String("!"))
                    return fail(QStringLiteral("nežinomas ženklas '!'"), i);
                i += op.size();
            } else if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
                t.type = Tok::String;
                ++i;
                bool closed = false;
                while (i < n) {
                    if (text_.at(i) == c) {
                        if (i + 1 < n && text_.at(i + 1) == c) {
                            t.text.append(c);
                            i += 2;
                            continue;
                        }
                        ++i;
                        closed = true;
                        break;
                    }
                    t.text.append(text_.at(i++));
                }
                if (!closed)
                    return fail(QStringLiteral("neuždaryta kabutė"), t.pos);
            } else if (c == QLatin1Char('#')) {
                t.type = Tok::DateLit;
                const int close = text_.indexOf(QLatin1Char('#'), i + 1);
                if (close < 0)
                    return fail(QStringLiteral("neuždaryta datos žymė '#'"), t.pos);
                t.text = text_.mid(i + 1, close - i - 1).trimmed();
                i = close + 1;
            } else if (c == QLatin1Char('[')) {
                t.type = Tok::Name;
                const int close = text_.indexOf(QLatin1Char(']'), i + 1);
                if (close < 0)
                    return fail(QStringLiteral("neuždarytas lauko pavadinimo skliaustas '['"),
                                t.pos);
                t.text = text_.mid(i + 1, close - i - 1).trimmed();
                i = close + 1;
                if (t.text.isEmpty())
                    return fail(QStringLiteral("tuščias lauko pavadinimas '[]'"), t.pos);
                bracketed_.insert(tokens_.size());
            } else if (c.isDigit() ||
                       ((c == QLatin1Char('-') || c == QLatin1Char('.')) && i + 1 < n &&
                        (text_.at(i + 1).isDigit() ||
                         (c == QLatin1Char('-') && text_.at(i + 1) == QLatin1Char('.') &&
                          i + 2 < n && text_.at(i + 2).isDigit())))) {
                t.type = Tok::Number;
                int j = i + 1;
                bool dot = c == QLatin1Char('.');
                while (j < n &&
                       (text_.at(j).isDigit() || (!dot && text_.at(j) == QLatin1Char('.')))) {
                    if (text_.at(j) == QLatin1Char('.'))
                        dot = true;
                    ++j;
                }
                if (j < n && (IsNamePart(text_.at(j)) || text_.at(j) == QLatin1Char('.')))
                    return fail(QStringLiteral("netinkamas skaičius %1")
                                    .arg(quoted(text_.mid(i, j - i + 1))),
                                t.pos);
                bool ok = false;
                t.number = text_.mid(i, j - i).toDouble(&ok);
                if (!ok)
                    return fail(
                        QStringLiteral("netinkamas skaičius %1").arg(quoted(text_.mid(i, j - i))),
                        t.pos);
                i = j;
            } else if (IsNameStart(c)) {
                t.type = Tok::Name;
                int j = i + 1;
                while (j < n && IsNamePart(text_.at(j)))
                    ++j;
                t.text = text_.mid(i, j - i);
                i = j;
            } else {
                return fail(QStringLiteral("nežinomas ženklas %1").arg(quoted(QString(c))), i);
            }
            t.source = text_.mid(t.pos, i - t.pos);
            tokens_.append(t);
        }
    }

    // --- Parser ------------------------------------------------------------------------
    const Token& peek() const { return tokens_.at(at_); }
    const Token& take() {
        const Token& t = tokens_.at(at_);
        if (at_ + 1 < tokens_.size())
            ++at_;
        return t;
    }
    bool isKeyword(const Token& t, const char* word) const {
        return t.type == Tok::Name && !bracketed_.contains(int(&t - tokens_.constData())) &&
               t.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    }
    bool isAnyKeyword(const Token& t) const {
        for (const char* w : {"and", "or", "not", "like", "is", "null", "true", "false", "in"})
            if (isKeyword(t, w))
                return true;
        return false;
    }

    int addNode(Node node) {
        out_->nodes_.push_back(std::move(node));
        return int(out_->nodes_.size()) - 1;
    }
    int addGroup(Node::Type type, std::vector<int> children) {
        if (children.size() == 1)
            return children.front();
        Node n;
        n.type = type;
        n.children = std::move(children);
        return addNode(std::move(n));
    }

    int parseOr() {
        std::vector<int> parts;
        int first = parseAnd();
        if (first < 0)
            return -1;
        parts.push_back(first);
        while (isKeyword(peek(), "or")) {
            take();
            const int next = parseAnd();
            if (next < 0)
                return -1;
            parts.push_back(next);
        }
        return addGroup(Node::Type::Or, std::move(parts));
    }

    int parseAnd() {
        std::vector<int> parts;
        int first = parseUnary();
        if (first < 0)
            return -1;
        parts.push_back(first);
        while (isKeyword(peek(), "and")) {
            take();
            const int next = parseUnary();
            if (next < 0)
                return -1;
            parts.push_back(next);
        }
        return addGroup(Node::Type::And, std::move(parts));
    }

    int parseUnary() {
        const Token& t = peek();
        if (isKeyword(t, "not")) {
            take();
            const int inner = parseUnary();
            if (inner < 0)
                return -1;
            Node n;
            n.type = Node::Type::Not;
            n.children = {inner};
            return addNode(std::move(n));
        }
        if (t.type == Tok::LParen) {
            const int open = t.pos;
            take();
            const int inner = parseOr();
            if (inner < 0)
                return -1;
            if (peek().type != Tok::RParen) {
                if (peek().type == Tok::End)
                    return failNode(QStringLiteral("trūksta uždarančio skliausto ')' skliaustui, "
                                                   "atidarytam pozicijoje %1")
                                        .arg(open + 1),
                                    peek().pos);
                return failNode(QStringLiteral("laukiamas ')', rastas %1").arg(describe(peek())),
                                peek().pos);
            }
            take();
            return inner;
        }
        return parseComparison();
    }

    int parseComparison() {
        const Token& nameTok = peek();
        if (nameTok.type == Tok::End)
            return failNode(QStringLiteral("trūksta sąlygos"), nameTok.pos);
        if (nameTok.type == Tok::RParen)
            return failNode(QStringLiteral("trūksta sąlygos prieš ')'"), nameTok.pos);
        if (nameTok.type != Tok::Name || isAnyKeyword(nameTok))
            return failNode(
                QStringLiteral("laukiamas lauko pavadinimas, rastas %1").arg(describe(nameTok)),
                nameTok.pos);
        const int field = fieldIndex(nameTok.text);
        if (field < 0)
            return failNode(QStringLiteral("nežinomas laukas %1").arg(quoted(nameTok.text)),
                            nameTok.pos);
        const QString fieldName = fields_.at(field).name;
        take();
        if (fields_.at(field).type == FieldType::Chapter)
            return failNode(QStringLiteral("lauko %1 (įdėtos lentelės) filtruoti negalima")
                                .arg(quoted(fieldName)),
                            nameTok.pos);

        const Token& opTok = peek();
        if (opTok.type == Tok::Op) {
            take();
            return parseOperandCompare(field, opTok);
        }
        if (isKeyword(opTok, "like")) {
            take();
            return parseLike(field, false);
        }
        if (isKeyword(opTok, "not")) {
            take();
            const Token& next = peek();
            if (isKeyword(next, "like")) {
                take();
                return parseLike(field, true);
            }
            if (isKeyword(next, "in")) {
                take();
                return parseIn(field, next, true);
            }
            return failNode(
                QStringLiteral("po 'Not' laukiama 'Like' arba 'In', rastas %1").arg(describe(next)),
                next.pos);
        }
        if (isKeyword(opTok, "in")) {
            take();
            return parseIn(field, opTok, false);
        }
        if (isKeyword(opTok, "is")) {
            take();
            bool negate = false;
            if (isKeyword(peek(), "not")) {
                take();
                negate = true;
            }
            if (!isKeyword(peek(), "null"))
                return failNode(
                    QStringLiteral("po 'Is' laukiama 'Null', rastas %1").arg(describe(peek())),
                    peek().pos);
            take();
            Node n;
            n.field = field;
            n.mode = negate ? Node::Mode::NotNull : Node::Mode::IsNull;
            return addNode(std::move(n));
        }
        if (opTok.type == Tok::End)
            return failNode(
                QStringLiteral("po lauko %1 trūksta palyginimo ženklo").arg(quoted(fieldName)),
                opTok.pos);
        return failNode(QStringLiteral("po lauko %1 laukiamas palyginimo ženklas, rastas %2")
                            .arg(quoted(fieldName), describe(opTok)),
                        opTok.pos);
    }

    int parseLike(int field, bool negate) {
        const Token& pat = peek();
        if (pat.type != Tok::String) {
            if (pat.type == Tok::End)
                return failNode(QStringLiteral("po 'like' trūksta šablono kabutėse"), pat.pos);
            return failNode(QStringLiteral("po 'like' laukiamas šablonas kabutėse, rastas %1")
                                .arg(describe(pat)),
                            pat.pos);
        }
        take();
        Node n;
        n.field = field;
        n.mode = Node::Mode::Like;
        n.text = pat.text;
        n.like = FilterExpression::LikeParts::Of(pat.text);
        n.negate = negate;
        return addNode(std::move(n));
    }

    int parseIn(int field, const Token& inTok, bool negate) {
        if (peek().type != Tok::LParen)
            return failNode(
                QStringLiteral("po 'In' laukiamas '(', rastas %1").arg(describe(peek())),
                peek().pos);
        take();
        // Not In is a chain of <> joined by And, so that a Null value passes neither form.
        Token eq;
        eq.type = Tok::Op;
        eq.source = negate ? QStringLiteral("<>") : QStringLiteral("=");
        eq.pos = inTok.pos;
        std::vector<int> parts;
        while (true) {
            const int node = parseOperandCompare(field, eq);
            if (node < 0)
                return -1;
            parts.push_back(node);
            if (peek().type == Tok::Comma) {
                take();
                continue;
            }
            if (peek().type == Tok::RParen) {
                take();
                break;
            }
            return failNode(
                QStringLiteral("sąraše laukiama ',' arba ')', rastas %1").arg(describe(peek())),
                peek().pos);
        }
        return addGroup(negate ? Node::Type::And : Node::Type::Or, std::move(parts));
    }

    // The value after a comparison sign, compiled for the type of the field.
    int parseOperandCompare(int field, const Token& opTok) {
        Node n;
        n.field = field;
        const QString& op = opTok.source;
        if (op == QLatin1String("="))
            n.op = Node::Op::Eq;
        else if (op == QLatin1String("<>") || op == QLatin1String("!="))
            n.op = Node::Op::Ne;
        else if (op == QLatin1String("<"))
            n.op = Node::Op::Lt;
        else if (op == QLatin1String(">"))
            n.op = Node::Op::Gt;
        else if (op == QLatin1String("<="))
            n.op = Node::Op::Le;
        else
            n.op = Node::Op::Ge;

        const Token& v = peek();
        const FieldDef& def = fields_.at(field);
        const QString fieldName = quoted(def.name);
        if (isKeyword(v, "null")) {
            take();
            if (n.op != Node::Op::Eq && n.op != Node::Op::Ne)
                return failNode(QStringLiteral("Null lyginamas tik su '=' arba '<>'"), v.pos);
            n.mode = n.op == Node::Op::Eq ? Node::Mode::IsNull : Node::Mode::NotNull;
            return addNode(std::move(n));
        }
        Value operand;
        if (v.type == Tok::String)
            operand = Value(v.text);
        else if (v.type == Tok::Number)
            operand = Value(v.number);
        else if (isKeyword(v, "true") || isKeyword(v, "false"))
            operand = Value(isKeyword(v, "true"));
        else if (v.type == Tok::DateLit) {
            bool ok = false;
            operand = dateValue(v.text, &ok);
            if (!ok)
                return failNode(QStringLiteral("netinkama data %1").arg(describe(v)), v.pos);
        } else {
            if (v.type == Tok::End)
                return failNode(QStringLiteral("po %1 trūksta reikšmės").arg(quoted(op)), v.pos);
            if (v.type == Tok::Name && !isAnyKeyword(v))
                return failNode(QStringLiteral("po %1 laukiama reikšmė (tekstas kabutėse, skaičius "
                                               "ar data), rastas žodis %2")
                                    .arg(quoted(op), describe(v)),
                                v.pos);
            return failNode(
                QStringLiteral("po %1 laukiama reikšmė, rastas %2").arg(quoted(op), describe(v)),
                v.pos);
        }
        take();

        const FieldType type = fields_.at(field).type;
        if (IsTextType(type)) {
            if (operand.isText()) {
                n.mode = Node::Mode::Text;
                n.text = operand.toString();
            } else if (operand.kind() == Value::Kind::Double ||
                       operand.kind() == Value::Kind::Bool) {
                n.mode = Node::Mode::Number;
                n.number = operand.toDouble();
            } else {
                n.mode = Node::Mode::Dynamic;
                n.operand = operand;
            }
        } else if (IsIntegerType(type) || IsFractionalType(type) || type == FieldType::Boolean) {
            bool ok = false;
            double d = operand.toDouble(&ok);
            if (!ok && operand.isText() && type == FieldType::Boolean)
                d = operand.toBool(&ok) ? -1.0 : 0.0;
            if (!ok)
                return failNode(QStringLiteral("reikšmė %1 nėra skaičius, o laukas %2 skaitinis")
                                    .arg(describe(v), fieldName),
                                v.pos);
            n.mode = Node::Mode::Number;
            n.number = d;
        } else if (IsDateType(type)) {
            if (operand.kind() == Value::Kind::Double) {
                const double serial = operand.toDouble();
                const double days = std::floor(serial);
                n.dateKey = DateKey(QDate(1899, 12, 30).addDays(qint64(days)),
                                    int(std::lround((serial - days) * 86400000.0)));
            } else {
                bool ok = false;
                const QDateTime dt = operand.isText()
                                         ? dateValue(operand.toString(), &ok).toDateTime()
                                         : operand.toDateTime(&ok);
                if (!ok || !dt.isValid())
                    return failNode(QStringLiteral("reikšmė %1 nėra data, o laukas %2 datos")
                                        .arg(describe(v), fieldName),
                                    v.pos);
                n.dateKey = DateKey(dt.date(), dt.time().msecsSinceStartOfDay());
            }
            n.mode = Node::Mode::Date;
        } else {
            n.mode = Node::Mode::Dynamic;
            n.operand = operand;
        }
        return addNode(std::move(n));
    }

    // A date as the filter writes it: yyyy-mm-dd, yyyy.mm.dd or yyyy/mm/dd, with an
    // optional time; between #...# also m/d/yyyy.
    static Value dateValue(const QString& text, bool* ok) {
        const QString t = text.trimmed();
        const Value v(t);
        bool k = false;
        const QDate d = v.toDate(&k);
        if (k && t.size() == 10) {
            *ok = true;
            return Value(d);
        }
        const QDateTime dt = v.toDateTime(&k);
        if (k) {
            *ok = true;
            return Value(dt);
        }
        for (const char* fmt : {"M/d/yyyy", "M/d/yyyy h:mm:ss", "d.M.yyyy"}) {
            const QDateTime x = QDateTime::fromString(t, QLatin1String(fmt));
            if (x.isValid()) {
                *ok = true;
                return x.time().msecsSinceStartOfDay() == 0 ? Value(x.date()) : Value(x);
            }
        }
        *ok = false;
        return Value();
    }

    int fieldIndex(const QString& name) const {
        for (int i = 0; i < fields_.size(); ++i)
            if (fields_.at(i).name.compare(name, Qt::CaseInsensitive) == 0)
                return i;
        return -1;
    }

    const QString& text_;
    const FieldDefs& fields_;
    FilterExpression* out_;
    QVector<Token> tokens_;
    QSet<int> bracketed_; // token indices written as [Name]: never keywords
    int at_ = 0;
};

FilterExpression::FilterExpression() = default;
FilterExpression::~FilterExpression() = default;

std::shared_ptr<const FilterExpression>
FilterExpression::Parse(const QString& text, const FieldDefs& fields, ResultRecord* result) {
    std::shared_ptr<FilterExpression> expr(new FilterExpression);
    expr->text_ = text;
    FilterParser parser(text, fields, expr.get());
    if (!parser.Run()) {
        if (result)
            *result = ResultRecord::Failure(
                ErrorCode,
                QStringLiteral("Filtras neperskaitomas: %1 (pozicija %2): %3")
                    .arg(parser.error, QString::number(parser.errorPos + 1), text.trimmed()));
        return nullptr;
    }
    if (result)
        *result = ResultRecord::Success();
    return expr;
}

bool FilterExpression::Matches(const Value* row) const {
    return root_ < 0 || eval(root_, row);
}

bool FilterExpression::Like(const QString& value, const QString& pattern) {
    return LikeParts::Of(pattern).Matches(value);
}

bool FilterExpression::eval(int index, const Value* row) const {
    const Node& n = nodes_[size_t(index)];
    switch (n.type) {
    case Node::Type::And:
        for (int c : n.children)
            if (!eval(c, row))
                return false;
        return true;
    case Node::Type::Or:
        for (int c : n.children)
            if (eval(c, row))
                return true;
        return false;
    case Node::Type::Not:
        return !eval(n.children.front(), row);
    case Node::Type::Compare:
        break;
    }
    const Value& v = row[n.field];
    if (v.isNull())
        return n.mode == Node::Mode::IsNull;
    switch (n.mode) {
    case Node::Mode::IsNull:
        return false;
    case Node::Mode::NotNull:
        return true;
    case Node::Mode::Text:
        if (v.isText())
            return ApplyOp(n.op,
                           Cmp3(QString::compare(v.toString(), n.text, Qt::CaseInsensitive), 0));
        [[fallthrough]];
    case Node::Mode::Dynamic: {
        bool comparable = false;
        const int c =
            v.compare(n.mode == Node::Mode::Text ? Value(n.text) : n.operand, &comparable);
        return comparable && ApplyOp(n.op, c);
    }
    case Node::Mode::Number: {
        bool ok = false;
        const double d = v.toDouble(&ok);
        return ok && !v.isDateLike() && ApplyOp(n.op, Cmp3(d, n.number));
    }
    case Node::Mode::Date: {
        qint64 key = 0;
        return ValueDateKey(v, &key) && ApplyOp(n.op, Cmp3(key, n.dateKey));
    }
    case Node::Mode::Like:
        return n.like.Matches(v.toString()) != n.negate;
    }
    return false;
}

} // namespace orvo
