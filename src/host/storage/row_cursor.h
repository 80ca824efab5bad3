// RowCursor is one row of a result while a streaming read (Database::QueryEach) stands on
// it. The reader asks for each column, by position, in the kind it wants, and the cursor
// reads it straight from the backend's own buffers. A long list (every open debt of a
// ledger) is thus built into the caller's rows without a Value per cell and without a
// second copy of the whole result. A cursor is valid only inside the visit that got it.
//
// A text that repeats the same column of the row before (an account, a currency code, the
// name of a customer over the customer's invoices) is handed out as that row's string,
// shared rather than made again. A column whose few texts recur in no order (a customer's
// code and name in a list by date) is read with RecurringText, which remembers every text
// of the column it has made.
//
// Conversions: Int64 of a stored fraction cuts toward zero; Double of a whole number is
// that number; Text of a number is its decimal text; Date reads 'YYYY-MM-DD' (how both
// backends give a date as text) and is invalid for anything else. Null reads as 0, an
// empty text and an invalid date; IsNull tells it apart. A column out of range reads as
// Null.
#pragma once

#include <QDate>
#include <QString>
#include <functional>
#include <memory>

namespace orvo::host {

class RowCursor {
public:
    RowCursor();
    virtual ~RowCursor();
    RowCursor(const RowCursor&) = delete;
    RowCursor& operator=(const RowCursor&) = delete;

    virtual int ColumnCount() const = 0;
    virtual bool IsNull(int column) const = 0;
    virtual qint64 Int64(int column) const = 0;
    virtual double Double(int column) const = 0;
    QString Text(int column) const;
    // As Text, for a column of few distinct texts: each is made once per read and shared by
    // every row that holds it. Not for a column of texts that differ row by row (a
    // document's text), which would only fill the memory.
    QString RecurringText(int column) const;
    virtual QDate Date(int column) const = 0;

    // The date of a 'YYYY-MM-DD' text of `size` bytes; invalid for any other text.
    static QDate IsoDate(const char* bytes, int size);

protected:
    // The UTF-8 bytes of a column that holds a text, valid until the cursor moves; false
    // for a column that holds anything else.
    virtual bool TextBytes(int column, const char** data, int* size) const = 0;
    // The text of a column that holds no text: a number's, Null's.
    virtual QString OtherText(int column) const = 0;

private:
    struct Made;

    // The text of a column, made once per distinct text when `recurring`, else compared
    // with the column's last one.
    QString madeText(int column, bool recurring) const;

    // The texts handed out so far, with the UTF-8 bytes each was made from: by column, the
    // last one and, for RecurringText, every one.
    std::unique_ptr<Made> made_;
};

// Called once per row, in the result's order; returning false ends the read early, which
// is no failure.
using RowVisitor = std::function<bool(const RowCursor&)>;

} // namespace orvo::host
