// FilterExpression is the one filter language of the system, read once and then applied
// to many rows. A text such as "AccountD like '24*' And (SumA > 100 OR CurrCode = 'USD')"
// is parsed against a recordset's fields into a small tree of comparisons bound to field
// indices, so that testing a row does no name look-up and no allocation in the common
// cases. The language:
// - comparisons  Field = value, <>, <, >, <=, >=; Field [Not] like 'pattern' with * or %
//   as wildcards anywhere (case-insensitive); Field Is [Not] Null, Field = Null,
//   Field <> Null; Field [Not] In (v1, v2, ...);
// - And, OR, Not (keywords in any case) and parentheses, And binding tighter than OR;
// - values: quoted text with '' for a quote inside, numbers with a dot (negative
//   allowed), dates in quotes or between #...# ('2024.03.01', #2024-03-01#), True,
//   False and Null; field names without regard to case, optionally in [brackets].
// Texts compare without regard to case; a text field compared with a number compares
// numerically when its text reads as a number; a boolean field is -1 (true) or 0
// against numbers. A Null field value fails every comparison but `= Null`/`Is Null`.
// A text that cannot be read gives a non-zero result naming what is wrong and where.
#pragma once

#include "core/field_type.h"
#include "core/results.h"
#include "core/value.h"

#include <QString>
#include <QVector>
#include <memory>
#include <vector>

namespace orvo {

class FilterExpression {
public:
    // The Code of a filter or sort text that cannot be read.
    static constexpr qint32 ErrorCode = 1;

    // Reads `text` against `fields`. On success `result` (when given) is Success and the
    // expression comes back; otherwise `result` carries ErrorCode and a text of the form
    // "Filtras neperskaitomas: <what> (pozicija N): <text>" and nullptr comes back. An
    // empty or all-blank text gives an expression that every row passes.
    static std::shared_ptr<const FilterExpression>
    Parse(const QString& text, const FieldDefs& fields, ResultRecord* result = nullptr);

    ~FilterExpression();

    // Whether every row passes (the text was empty).
    bool MatchesAll() const { return root_ < 0; }
    // Tests one row: `row` holds a value for each field given to Parse, in that order.
    bool Matches(const Value* row) const;
    bool Matches(const QVector<Value>& row) const { return Matches(row.constData()); }

    const QString& Text() const { return text_; }

    // Whether `value` matches a like pattern (* and % as wildcards, no regard to case).
    static bool Like(const QString& value, const QString& pattern);

    struct Node;      // one And/OR/Not or comparison of the tree
    struct LikeParts; // a like pattern cut at its wildcards

private:
    FilterExpression();
    bool eval(int node, const Value* row) const;

    QString text_;
    std::vector<Node> nodes_;
    int root_ = -1;
    friend class FilterParser;
};

} // namespace orvo
