// The painting of the entry lists shared by the editors and journals: a row is added
// with a blank in every column beyond the first that has no text, then coloured by its
// state (1 the whole row blue and bold, 2 the sub-items in the grey text colour, 3 grey
// with a bold mark), and the list headers of the entry lists are named once here.
#pragma once

#include <QColor>
#include <QStringList>
#include <QTreeWidget>

namespace orvo::ui {

class EntryListPainter {
public:
    enum State { Plain = 0, Marked = 1, Grey = 2, GreyMarked = 3 };

    // The headers of the entry lists, in the order the lists use them.
    static const QStringList& Headers();
    // Sets the list's columns; the list shows whole rows with no tree decoration.
    static void SetColumns(QTreeWidget* list, const QStringList& headers);

    // Adds a row: `cells` from the first column (the entry's date), a single blank in
    // every further column without text, `key` in the row's key data, coloured by
    // `state`. Returns the row.
    static QTreeWidgetItem* AddBRRow(QTreeWidget* list, const QString& key,
                                     const QStringList& cells, int state);
    // Colours an existing row by a state.
    static void Paint(QTreeWidgetItem* item, int state);

    static QColor Blue() { return QColor(0, 0, 255); }
    static QColor GreyText();
};

} // namespace orvo::ui
