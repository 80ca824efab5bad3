#include "ui/widgets/entry_list_painter.h"

#include "ui/widgets/qt_list_control.h"

#include <QApplication>
#include <QHeaderView>
#include <QPalette>

namespace orvo::ui {

const QStringList& EntryListPainter::Headers() {
    static const QStringList headers = {QStringLiteral("Data"),
                                        QStringLiteral("Debeto b/s"),
                                        QStringLiteral("Kredito b/s"),
                                        QStringLiteral("Suma"),
                                        QStringLiteral("Nuorodos"),
                                        QStringLiteral("Valiuta D"),
                                        QStringLiteral("Valiuta K"),
                                        QStringLiteral("Dokumentai"),
                                        QStringLiteral("B/sąskaita"),
                                        QStringLiteral("Koresp.sąsk."),
                                        QStringLiteral("Debetas"),
                                        QStringLiteral("Kreditas"),
                                        QStringLiteral("Likutis D"),
                                        QStringLiteral("Likutis K"),
                                        QStringLiteral("Operacija / Dokumentas"),
                                        QStringLiteral("Apmokamos operacijos")};
    return headers;
}

void EntryListPainter::SetColumns(QTreeWidget* list, const QStringList& headers) {
    if (!list)
        return;
    list->clear();
    list->setColumnCount(headers.size());
    list->setHeaderLabels(headers);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->header()->setStretchLastSection(true);
}

QColor EntryListPainter::GreyText() {
    return QApplication::palette().color(QPalette::Disabled, QPalette::Text);
}

QTreeWidgetItem* EntryListPainter::AddBRRow(QTreeWidget* list, const QString& key,
                                            const QStringList& cells, int state) {
    if (!list)
        return nullptr;
    auto* item = new QTreeWidgetItem(list);
    item->setData(0, QtListControl::KeyRole, key);
    for (int c = 0; c < list->columnCount(); ++c) {
        const QString text = cells.value(c);
        item->setText(c, c > 0 && text.isEmpty() ? QStringLiteral(" ") : text);
    }
    Paint(item, state);
    return item;
}

void EntryListPainter::Paint(QTreeWidgetItem* item, int state) {
    if (!item)
        return;
    const int columns = item->columnCount();
    for (int c = 0; c < columns; ++c) {
        QFont font = item->font(c);
        switch (state) {
        case Marked:
            item->setForeground(c, Blue());
            font.setBold(true);
            break;
        case Grey:
        case GreyMarked:
            if (c > 0)
                item->setForeground(c, GreyText());
            font.setBold(state == GreyMarked);
            break;
        default:
            item->setData(c, Qt::ForegroundRole, QVariant());
            font.setBold(false);
            break;
        }
        item->setFont(c, font);
    }
}

} // namespace orvo::ui
