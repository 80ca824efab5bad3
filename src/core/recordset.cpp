#include "core/recordset.h"

#include "core/filter_expression.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace orvo {

namespace {

double RoundTo(double d, int places) {
    const double f = std::pow(10.0, places);
    return std::round(d * f) / f;
}

// A date written as text, or a serial day number, as a Date (or DateTime when it has
// a time of day).
Value ToDateValue(const Value& value, bool* ok) {
    *ok = true;
    if (value.isDateLike())
        return value;
    if (value.isText()) {
        bool k = false;
        const QString t = value.toString().trimmed();
        const QDate d = value.toDate(&k);
        if (k && t.size() == 10)
            return Value(d);
        const QDateTime dt = value.toDateTime(&k);
        if (k)
            return dt.time().msecsSinceStartOfDay() == 0 ? Value(dt.date()) : Value(dt);
    } else if (value.kind() == Value::Kind::Double || value.kind() == Value::Kind::Int16 ||
               value.kind() == Value::Kind::Int32) {
        // Serial days since 1899-12-30, the fraction being the time of day.
        const double serial = value.toDouble();
        const double days = std::floor(serial);
        const QDate d = QDate(1899, 12, 30).addDays(qint64(days));
        const int ms = int(std::lround((serial - days) * 86400000.0));
        if (d.isValid())
            return ms == 0 ? Value(d) : Value(QDateTime(d, QTime::fromMSecsSinceStartOfDay(ms)));
    }
    *ok = false;
    return Value();
}

// Deep copy of a value: a nested recordset is cloned (once per source recordset, so
// that a row whose original and current value share one nested recordset keeps doing so).
Value DeepCopy(const Value& v, QHash<const Recordset*, RecordsetPtr>* memo) {
    if (v.kind() != Value::Kind::Recordset)
        return v;
    const RecordsetPtr src = v.toRecordset();
    auto it = memo->constFind(src.get());
    if (it != memo->constEnd())
        return Value(it.value());
    RecordsetPtr copy = src->Clone();
    memo->insert(src.get(), copy);
    return Value(copy);
}

} // namespace

Recordset::Recordset(const FieldDefs& fields) {
    for (const FieldDef& f : fields)
        AppendField(f);
}

Recordset::~Recordset() = default;

RecordsetPtr Recordset::Create(const FieldDefs& fields) {
    return std::make_shared<Recordset>(fields);
}

bool Recordset::AppendField(const FieldDef& field) {
    if (!rows_.isEmpty() || field.name.isEmpty() || FieldIndex(field.name) >= 0)
        return false;
    fieldIndex_.insert(field.name, fields_.size());
    fields_.append(field);
    return true;
}

int Recordset::FieldIndex(const QString& name) const {
    const auto it = fieldIndex_.constFind(name);
    if (it != fieldIndex_.constEnd())
        return it.value();
    for (int i = 0; i < fields_.size(); ++i)
        if (fields_.at(i).name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

// --- Navigation ----------------------------------------------------------------------

int Recordset::RecordCount() const {
    return view_.size();
}

bool Recordset::Bof() const {
    return !onDeleted_ && (view_.isEmpty() || pos_ < 0);
}

bool Recordset::Eof() const {
    return !onDeleted_ && (view_.isEmpty() || pos_ >= view_.size());
}

void Recordset::MoveFirst() {
    onDeleted_ = false;
    pos_ = 0;
}

void Recordset::MoveNext() {
    if (onDeleted_) {
        // pos_ already stands on the row that followed the deleted one.
        onDeleted_ = false;
        return;
    }
    if (pos_ < view_.size())
        ++pos_;
}

void Recordset::MovePrevious() {
    if (onDeleted_) {
        onDeleted_ = false;
        --pos_;
        return;
    }
    if (pos_ >= 0)
        --pos_;
}

void Recordset::MoveLast() {
    onDeleted_ = false;
    pos_ = view_.size() - 1;
}

int Recordset::AbsolutePosition() const {
    if (onDeleted_ || pos_ < 0 || pos_ >= view_.size())
        return 0;
    return pos_ + 1;
}

bool Recordset::SetAbsolutePosition(int position) {
    if (position < 1 || position > view_.size())
        return false;
    onDeleted_ = false;
    pos_ = position - 1;
    return true;
}

int Recordset::currentRow() const {
    if (onDeleted_)
        return deletedRow_;
    if (pos_ < 0 || pos_ >= view_.size())
        return -1;
    return view_.at(pos_);
}

// --- The current row -----------------------------------------------------------------

Value Recordset::Field(const QString& name) const {
    return Field(FieldIndex(name));
}

Value Recordset::Field(int index) const {
    const int r = currentRow();
    if (r < 0 || index < 0 || index >= fields_.size())
        return Value();
    return rows_.at(r).values.at(index);
}

bool Recordset::SetField(const QString& name, const Value& value) {
    return SetField(FieldIndex(name), value);
}

bool Recordset::SetField(int index, const Value& value) {
    const int r = currentRow();
    if (onDeleted_ || r < 0 || index < 0 || index >= fields_.size())
        return false;
    bool ok = false;
    const Value v = coerce(index, value, &ok);
    if (!ok)
        return false;
    Row& row = rows_[r];
    if (row.status == RowStatus::Unchanged) {
        row.original = row.values;
        row.status = RowStatus::Modified;
    }
    row.values[index] = v;
    return true;
}

RowStatus Recordset::Status() const {
    if (onDeleted_)
        return RowStatus::Deleted;
    const int r = currentRow();
    return r < 0 ? RowStatus::Unchanged : rows_.at(r).status;
}

namespace {

// Whether a value goes into a field of this definition as it is; inline, since a long
// list asks it of every cell.
inline bool fitsField(const FieldDef& def, const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Null:
        return def.type != FieldType::Chapter;
    case Value::Kind::Text:
        return IsTextType(def.type) &&
               (def.definedSize <= 0 || value.textView().size() <= def.definedSize);
    case Value::Kind::Double: {
        const double d = value.toDouble();
        return def.type == FieldType::Double && std::isfinite(d);
    }
    case Value::Kind::Date:
        return IsDateType(def.type);
    case Value::Kind::Int16:
        return def.type == FieldType::SmallInt;
    case Value::Kind::Int32:
        return def.type == FieldType::Integer;
    case Value::Kind::Bool:
        return def.type == FieldType::Boolean;
    default:
        return false;
    }
}

} // namespace

bool Recordset::fitsAsIs(int field, const Value& value) const {
    return fitsField(fields_.at(field), value);
}

Value Recordset::coerce(int field, const Value& value, bool* ok) const {
    *ok = true;
    if (value.isNull() || fitsAsIs(field, value))
        return value;
    const FieldDef& def = fields_.at(field);
    const FieldType type = def.type;
    if (type == FieldType::Variant || type == FieldType::Empty)
        return value;
    if (type == FieldType::Chapter) {
        *ok = value.kind() == Value::Kind::Recordset;
        return *ok ? value : Value();
    }
    if (IsTextType(type)) {
        if (!value.isText() && !value.isNumeric() && !value.isDateLike()) {
            *ok = false;
            return Value();
        }
        const QString s = value.toString();
        if (def.definedSize > 0 && s.size() > def.definedSize) {
            *ok = false;
            return Value();
        }
        return value.isText() ? value : Value(s);
    }
    if (type == FieldType::Boolean) {
        if (value.isDateLike()) {
            *ok = false;
            return Value();
        }
        const bool b = value.toBool(ok);
        return *ok ? Value(b) : Value();
    }
    if (IsDateType(type))
        return ToDateValue(value, ok);
    if (value.isDateLike()) {
        *ok = false;
        return Value();
    }
    switch (type) {
    case FieldType::SmallInt: {
        const qint16 i = value.toInt16(ok);
        return *ok ? Value(i) : Value();
    }
    case FieldType::TinyInt: {
        const qint16 i = value.toInt16(ok);
        if (*ok && (i < -128 || i > 127))
            *ok = false;
        return *ok ? Value(i) : Value();
    }
    case FieldType::Integer: {
        const qint32 i = value.toInt32(ok);
        return *ok ? Value(i) : Value();
    }
    default:
        break;
    }
    const double d = value.toDouble(ok);
    if (!*ok || !std::isfinite(d)) {
        *ok = false;
        return Value();
    }
    switch (type) {
    case FieldType::BigInt: {
        const double r = std::nearbyint(d);
        if (std::fabs(r) > 9007199254740992.0) {
            *ok = false;
            return Value();
        }
        return Value(r);
    }
    case FieldType::Single:
        return Value(double(float(d)));
    case FieldType::Currency:
        return Value(RoundTo(d, 4));
    case FieldType::Decimal:
    case FieldType::Numeric:
        return def.precision > 0 ? Value(RoundTo(d, def.numericScale)) : Value(d);
    default:
        return Value(d);
    }
}

// --- Editing -------------------------------------------------------------------------

void Recordset::AddNew() {
    Row row;
    row.id = nextRowId_++;
    row.status = RowStatus::New;
    row.values.resize(fields_.size());
    for (int i = 0; i < fields_.size(); ++i) {
        const FieldDef& f = fields_.at(i);
        if (f.type == FieldType::Chapter)
            row.values[i] = Value(Create(f.children ? *f.children : FieldDefs{}));
    }
    rows_.append(std::move(row));
    // The new row joins the view at its end whatever the filter and sort say, so that
    // the caller goes on editing it; the next SetFilter or SetSort places it properly.
    view_.append(rows_.size() - 1);
    onDeleted_ = false;
    pos_ = view_.size() - 1;
}

bool Recordset::AppendStored(ValueArray values) {
    if (values.size() != fields_.size())
        return false;
    for (int i = 0; i < values.size(); ++i) {
        const FieldDef& f = fields_.at(i);
        if (f.type == FieldType::Chapter && values.at(i).isNull()) {
            values[i] = Value(Create(f.children ? *f.children : FieldDefs{}));
            continue;
        }
        if (fitsField(f, values.at(i)))
            continue;
        bool ok = false;
        Value fitted = coerce(i, values.at(i), &ok);
        if (!ok)
            return false;
        values[i] = std::move(fitted);
    }
    Row row;
    row.id = nextRowId_++;
    row.status = RowStatus::Unchanged;
    row.values = std::move(values);
    rows_.append(std::move(row));
    // Appending must not move the current row, nor turn an end-of-view into a row.
    const bool atEnd = pos_ >= view_.size();
    view_.append(rows_.size() - 1);
    if (atEnd)
        pos_ = view_.size();
    return true;
}

void Recordset::Update() {
    // Values are written by SetField at once; nothing is pending here.
}

bool Recordset::Delete() {
    if (onDeleted_ || pos_ < 0 || pos_ >= view_.size())
        return false;
    const int r = view_.at(pos_);
    view_.remove(pos_);
    if (rows_.at(r).status == RowStatus::New) {
        // A row that storage has never seen has nothing to delete there.
        rows_.remove(r);
        for (int& v : view_)
            if (v > r)
                --v;
        deletedRow_ = -1;
    } else {
        rows_[r].status = RowStatus::Deleted;
        deletedRow_ = r;
    }
    onDeleted_ = true;
    return true;
}

void Recordset::CancelBatch() {
    const qint64 keep = Bookmark();
    QVector<Row> kept;
    kept.reserve(rows_.size());
    for (Row& row : rows_) {
        if (row.status == RowStatus::New)
            continue;
        if (!row.original.isEmpty())
            row.values = row.original;
        row.original.clear();
        row.status = RowStatus::Unchanged;
        kept.append(std::move(row));
    }
    rows_ = std::move(kept);
    rebuildView();
    restorePosition(keep);
}

void Recordset::AcceptChanges() {
    const qint64 keep = Bookmark();
    QVector<Row> kept;
    kept.reserve(rows_.size());
    for (Row& row : rows_) {
        if (row.status == RowStatus::Deleted)
            continue;
        row.original.clear();
        row.status = RowStatus::Unchanged;
        kept.append(std::move(row));
    }
    rows_ = std::move(kept);
    rebuildView();
    restorePosition(keep);
}

// --- Filter and sort -----------------------------------------------------------------

ResultRecord Recordset::SetFilter(const QString& text) {
    filterText_ = text;
    ResultRecord result;
    if (text.trimmed().isEmpty()) {
        filter_.reset();
        filterBroken_ = false;
    } else {
        filter_ = FilterExpression::Parse(text, fields_, &result);
        filterBroken_ = !filter_;
    }
    rebuildView();
    MoveFirst();
    return result;
}

ResultRecord Recordset::SetSort(const QString& text) {
    QVector<QPair<int, bool>> keys;
    const QStringList parts = text.split(QLatin1Char(','));
    if (!text.trimmed().isEmpty()) {
        for (const QString& rawPart : parts) {
            QString part = rawPart.trimmed();
            bool desc = false;
            const auto fail = [&](const QString& what) {
                return ResultRecord::Failure(
                    FilterExpression::ErrorCode,
                    QStringLiteral("Rikiavimas neperskaitomas: %1: %2").arg(what, text.trimmed()));
            };
            if (part.isEmpty())
                return fail(QStringLiteral("trūksta lauko pavadinimo"));
            const int blank = part.lastIndexOf(QLatin1Char(' '));
            if (blank > 0 && !part.endsWith(QLatin1Char(']'))) {
                const QString dir = part.mid(blank + 1);
                if (dir.compare(QLatin1String("DESC"), Qt::CaseInsensitive) == 0)
                    desc = true;
                else if (dir.compare(QLatin1String("ASC"), Qt::CaseInsensitive) != 0)
                    return fail(
                        QStringLiteral("netinkama kryptis '%1' (galima ASC arba DESC)").arg(dir));
                part = part.left(blank).trimmed();
            }
            if (part.startsWith(QLatin1Char('[')) && part.endsWith(QLatin1Char(']')))
                part = part.mid(1, part.size() - 2).trimmed();
            const int field = FieldIndex(part);
            if (field < 0)
                return fail(QStringLiteral("nežinomas laukas '%1'").arg(part));
            if (fields_.at(field).type == FieldType::Chapter)
                return fail(QStringLiteral("pagal lauką '%1' rikiuoti negalima").arg(part));
            keys.append({field, desc});
        }
    }
    const qint64 keep = Bookmark();
    sortText_ = text;
    sortKeys_ = keys;
    onDeleted_ = false;
    sortView();
    restorePosition(keep);
    return ResultRecord::Success();
}

void Recordset::rebuildView() {
    onDeleted_ = false;
    view_.clear();
    if (filterBroken_)
        return;
    view_.reserve(rows_.size());
    const FilterExpression* filter = filter_ && !filter_->MatchesAll() ? filter_.get() : nullptr;
    for (int i = 0; i < rows_.size(); ++i) {
        const Row& row = rows_.at(i);
        if (row.status == RowStatus::Deleted)
            continue;
        if (filter && !filter->Matches(row.values.constData()))
            continue;
        view_.append(i);
    }
    if (!sortKeys_.isEmpty())
        sortView();
}

void Recordset::sortView() {
    if (sortKeys_.isEmpty()) {
        std::sort(view_.begin(), view_.end());
        return;
    }
    // The keys are read out of the rows once, so that the comparisons of the sort run
    // over compact arrays: numbers and dates as doubles (Null lowest), texts folded to
    // one case.
    enum class Mode { Number, Text, Any };
    // The first eight UTF-16 units of a folded text packed into two integers, so that
    // most text comparisons (accounts, codes, numbers of documents) end in two integer
    // comparisons; only texts that agree in their first eight units are compared whole.
    struct TextPrefix {
        quint64 hi = 0;
        quint64 lo = 0;
        static TextPrefix Of(const QString& t) {
            TextPrefix p;
            const qsizetype n = std::min<qsizetype>(t.size(), 8);
            for (qsizetype i = 0; i < n; ++i) {
                quint64& word = i < 4 ? p.hi : p.lo;
                word |= quint64(t.at(i).unicode()) << (16 * (3 - (i % 4)));
            }
            return p;
        }
    };
    struct Column {
        Mode mode = Mode::Any;
        bool desc = false;
        std::vector<double> number;
        std::vector<QString> text;
        std::vector<TextPrefix> prefix;
        std::vector<char> null;
        std::vector<Value> any;
    };
    const int n = view_.size();
    std::vector<Column> columns(size_t(sortKeys_.size()));
    for (int k = 0; k < sortKeys_.size(); ++k) {
        Column& c = columns[size_t(k)];
        const int f = sortKeys_.at(k).first;
        c.desc = sortKeys_.at(k).second;
        const FieldType t = fields_.at(f).type;
        if (IsIntegerType(t) || IsFractionalType(t) || t == FieldType::Boolean || IsDateType(t))
            c.mode = Mode::Number;
        else if (IsTextType(t))
            c.mode = Mode::Text;
        switch (c.mode) {
        case Mode::Number:
            c.number.resize(size_t(n));
            for (int i = 0; i < n; ++i) {
                const Value& v = rows_.at(view_.at(i)).values.at(f);
                c.number[size_t(i)] =
                    v.isNull() ? -std::numeric_limits<double>::infinity() : v.toDouble();
            }
            break;
        case Mode::Text:
            c.text.resize(size_t(n));
            c.prefix.resize(size_t(n));
            c.null.resize(size_t(n));
            for (int i = 0; i < n; ++i) {
                const Value& v = rows_.at(view_.at(i)).values.at(f);
                c.null[size_t(i)] = v.isNull();
                // Folded once here, so that each comparison is a plain one; a text
                // with nothing to fold (account numbers) is shared, not copied.
                c.text[size_t(i)] = v.toString().toCaseFolded();
                c.prefix[size_t(i)] = TextPrefix::Of(c.text[size_t(i)]);
            }
            break;
        case Mode::Any:
            c.any.resize(size_t(n));
            for (int i = 0; i < n; ++i)
                c.any[size_t(i)] = rows_.at(view_.at(i)).values.at(f);
            break;
        }
    }
    std::vector<int> order(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i)
        order[size_t(i)] = i;
    std::stable_sort(order.begin(), order.end(), [&columns](int a, int b) {
        for (const Column& c : columns) {
            int r = 0;
            switch (c.mode) {
            case Mode::Number: {
                const double x = c.number[size_t(a)], y = c.number[size_t(b)];
                r = x < y ? -1 : (x > y ? 1 : 0);
                break;
            }
            case Mode::Text:
                if (c.null[size_t(a)] || c.null[size_t(b)]) {
                    r = int(c.null[size_t(b)]) - int(c.null[size_t(a)]);
                } else {
                    const TextPrefix& x = c.prefix[size_t(a)];
                    const TextPrefix& y = c.prefix[size_t(b)];
                    if (x.hi != y.hi)
                        r = x.hi < y.hi ? -1 : 1;
                    else if (x.lo != y.lo)
                        r = x.lo < y.lo ? -1 : 1;
                    else if (c.text[size_t(a)].size() > 8 || c.text[size_t(b)].size() > 8)
                        r = QString::compare(c.text[size_t(a)], c.text[size_t(b)],
                                             Qt::CaseSensitive);
                }
                break;
            case Mode::Any: {
                const Value& x = c.any[size_t(a)];
                const Value& y = c.any[size_t(b)];
                bool comparable = false;
                r = x.compare(y, &comparable);
                if (!comparable)
                    r = int(x.kind()) - int(y.kind());
                break;
            }
            }
            if (r != 0)
                return c.desc ? r > 0 : r < 0;
        }
        return false;
    });
    QVector<int> sorted(n);
    for (int i = 0; i < n; ++i)
        sorted[i] = view_.at(order[size_t(i)]);
    view_ = std::move(sorted);
}

void Recordset::restorePosition(qint64 rowId) {
    onDeleted_ = false;
    pos_ = 0;
    if (rowId >= 0)
        SetBookmark(rowId);
}

// --- Bookmarks and stored rows -------------------------------------------------------

qint64 Recordset::Bookmark() const {
    if (onDeleted_)
        return -1;
    const int r = currentRow();
    return r < 0 ? -1 : rows_.at(r).id;
}

bool Recordset::SetBookmark(qint64 bookmark) {
    for (int i = 0; i < view_.size(); ++i) {
        if (rows_.at(view_.at(i)).id == bookmark) {
            onDeleted_ = false;
            pos_ = i;
            return true;
        }
    }
    return false;
}

RowStatus Recordset::StatusAt(int row) const {
    if (row < 0 || row >= rows_.size())
        return RowStatus::Unchanged;
    return rows_.at(row).status;
}

Value Recordset::ValueAt(int row, int field) const {
    if (row < 0 || row >= rows_.size() || field < 0 || field >= fields_.size())
        return Value();
    return rows_.at(row).values.at(field);
}

Value Recordset::OriginalValueAt(int row, int field) const {
    if (row < 0 || row >= rows_.size() || field < 0 || field >= fields_.size())
        return Value();
    const Row& r = rows_.at(row);
    if (r.status == RowStatus::New)
        return Value();
    return r.original.isEmpty() ? r.values.at(field) : r.original.at(field);
}

bool Recordset::SetValueAt(int row, int field, const Value& value) {
    if (row < 0 || row >= rows_.size() || field < 0 || field >= fields_.size())
        return false;
    bool ok = false;
    const Value v = coerce(field, value, &ok);
    if (!ok)
        return false;
    Row& r = rows_[row];
    r.values[field] = v;
    if (!r.original.isEmpty())
        r.original[field] = v;
    return true;
}

// --- Copies --------------------------------------------------------------------------

RecordsetPtr Recordset::Clone() const {
    RecordsetPtr copy = Create(fields_);
    copy->rows_ = rows_;
    QHash<const Recordset*, RecordsetPtr> memo;
    for (int f = 0; f < fields_.size(); ++f) {
        for (Row& row : copy->rows_) {
            if (row.values.at(f).kind() == Value::Kind::Recordset)
                row.values[f] = DeepCopy(row.values.at(f), &memo);
            if (!row.original.isEmpty() && row.original.at(f).kind() == Value::Kind::Recordset)
                row.original[f] = DeepCopy(row.original.at(f), &memo);
        }
    }
    copy->nextRowId_ = nextRowId_;
    copy->modifiedOnly_ = modifiedOnly_;
    copy->rebuildView();
    copy->MoveFirst();
    return copy;
}

RecordsetPtr Recordset::CloneStructure() const {
    return Create(fields_);
}

} // namespace orvo
