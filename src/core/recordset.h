// Recordset is the table in memory that carries all data of the system: named, typed
// fields, rows, a current row, a filter in the one filter language, a sort order, and
// per-row status (new, modified, deleted, unchanged) so that a save transfers only what
// changed. A Chapter field holds a nested Recordset in every row, so one recordset is a
// tree: an operation's single row holds its entries, each entry its addressees.
//
// Contract, in the manner the rest of the system relies on:
// - Navigation walks the visible rows: those that pass the filter and are not deleted,
//   in sort order. Bof()/Eof() are true before the first / after the last visible row;
//   on an empty view both are true.
// - Field reads on no current row, or of an unknown field, give Null. SetField coerces
//   the value to the field's type (a number typed as text into a Double field, a
//   date text into a Date field); what cannot be coerced is refused with false and
//   nothing changes. Setting a field of an Unchanged row makes it Modified.
// - AddNew appends a row with status New, gives every Chapter field an empty nested
//   recordset of its child fields, and makes the row current. Update ends the edit.
// - Delete marks the current row Deleted (a New row is dropped outright). The deleted
//   row stays current until the next move, which skips it, so `Delete(); MoveNext();`
//   walks on to the row after it. Meanwhile Bof()/Eof() are false, its fields still
//   read (Null for a dropped New row), and SetField and Delete refuse it.
// - A row added under a filter or sort stays visible, at the end, until the next
//   SetFilter or SetSort places it; values set later are likewise judged then.
// - CancelBatch undoes every change since the last AcceptChanges on this recordset
//   (not its nested ones): new rows go, deleted rows return, modified values revert.
//   AcceptChanges (what a successful save does) forgets deleted rows and marks all
//   rows Unchanged.
// - SetFilter with an empty text shows every row. A filter that cannot be read gives a
//   non-zero result with a clear text and the view then shows no row: it never falls
//   back to "all rows". Moving to the first row follows every successful SetFilter.
// - SetSort takes "Field1,Field2 DESC" (ASC may be written; texts ignore case; Null
//   comes first; rows that tie keep their order); an empty text returns to insertion
//   order. SetSort keeps the current row; a text that cannot be read changes nothing.
#pragma once

#include "core/field_type.h"
#include "core/results.h"
#include "core/value.h"

#include <QHash>
#include <QString>
#include <QVector>
#include <memory>

namespace orvo {

enum class RowStatus { Unchanged, New, Modified, Deleted };

class FilterExpression;

class Recordset {
public:
    explicit Recordset(const FieldDefs& fields = {});
    ~Recordset();
    static RecordsetPtr Create(const FieldDefs& fields = {});

    // Structure. AppendField works while the recordset has no rows; false otherwise or
    // when the name is taken.
    bool AppendField(const FieldDef& field);
    const FieldDefs& FieldDefinitions() const { return fields_; }
    int FieldCount() const { return fields_.size(); }
    // Index of a field by name, compared without regard to case; -1 when absent.
    int FieldIndex(const QString& name) const;
    bool HasField(const QString& name) const { return FieldIndex(name) >= 0; }

    // Navigation over the visible rows.
    int RecordCount() const;
    bool Bof() const; // named so because BOF/EOF are macros of the C library
    bool Eof() const;
    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();
    // 1-based position of the current row among the visible rows; 0 on Bof/Eof.
    int AbsolutePosition() const;
    bool SetAbsolutePosition(int position);

    // The current row.
    Value Field(const QString& name) const;
    Value Field(int index) const;
    bool SetField(const QString& name, const Value& value);
    bool SetField(int index, const Value& value);
    RowStatus Status() const;

    // Appends a row as storage holds it: status Unchanged, so that a save leaves it alone,
    // with one value per field, each coerced as SetField would (Null in a Chapter field
    // becomes an empty nested recordset). False, and nothing appended, when the count
    // differs from the fields' or a value does not fit. The row joins the view at its end,
    // as a new row does, and the current row stays where it was: this is how a long list
    // read from the book is filled without an edit per field.
    bool AppendStored(ValueArray values);

    // Editing.
    void AddNew();
    void Update();
    bool Delete();
    void CancelBatch();
    void AcceptChanges();

    // Filter and sort.
    ResultRecord SetFilter(const QString& text);
    const QString& Filter() const { return filterText_; }
    ResultRecord SetSort(const QString& text);
    const QString& Sort() const { return sortText_; }

    // A stable identity of the current row, to come back to it after a filter or sort
    // change; -1 when there is no current row. SetBookmark fails if the row is hidden.
    qint64 Bookmark() const;
    bool SetBookmark(qint64 bookmark);

    // Every stored row, in insertion order, deleted ones included: what a save reads.
    int RowCountAll() const { return rows_.size(); }
    RowStatus StatusAt(int row) const;
    Value ValueAt(int row, int field) const;
    Value OriginalValueAt(int row, int field) const;
    // Writes a stored row's value as the book now holds it (a record number given by a
    // save), changing neither the row's status nor the current row; false when the row
    // or field does not exist or the value does not fit the field.
    bool SetValueAt(int row, int field, const Value& value);

    // Whether a save transfers only new, modified and deleted rows (set after a read).
    bool ModifiedOnlyTransfer() const { return modifiedOnly_; }
    void SetModifiedOnlyTransfer(bool on) { modifiedOnly_ = on; }

    // A disconnected deep copy: fields, every row with its status and original values,
    // and a deep copy of each nested recordset. Filter and sort are not carried over.
    RecordsetPtr Clone() const;
    // The same fields and no rows.
    RecordsetPtr CloneStructure() const;

private:
    struct Row {
        qint64 id = 0;
        RowStatus status = RowStatus::New;
        QVector<Value> values;
        // Values as of the last AcceptChanges, copied on the first change of an Unchanged
        // row; empty while the row is unchanged (its values are then the originals) and
        // for a New row.
        QVector<Value> original;
    };

    void rebuildView();
    void sortView();
    void restorePosition(qint64 rowId);
    int currentRow() const; // index into rows_, -1 when none
    Value coerce(int field, const Value& value, bool* ok) const;
    // Whether the value is already what coerce would make of it (the usual case of a row
    // read from storage), so that it can be kept without a conversion.
    bool fitsAsIs(int field, const Value& value) const;

    FieldDefs fields_;
    QHash<QString, int> fieldIndex_; // exact name -> index; other spellings are scanned
    QVector<Row> rows_;
    qint64 nextRowId_ = 1;
    QVector<int> view_; // indices into rows_ of visible rows, in order
    int pos_ = -1;      // index into view_; -1 Bof, view_.size() Eof
    // Just after Delete the deleted row is still current, though it has left view_:
    // deletedRow_ is its index into rows_ (-1 when a New row was dropped) and pos_ the
    // place in view_ of the row after it.
    bool onDeleted_ = false;
    int deletedRow_ = -1;
    QString filterText_;
    std::shared_ptr<const FilterExpression> filter_;
    bool filterBroken_ = false;
    QString sortText_;
    QVector<QPair<int, bool>> sortKeys_; // field index, descending
    bool modifiedOnly_ = false;
};

} // namespace orvo
