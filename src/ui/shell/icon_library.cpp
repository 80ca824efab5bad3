#include "ui/shell/icon_library.h"

#include "frame/icon_resources.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpression>
#include <QStyle>

namespace orvo::ui {

namespace {

QIcon badge(const QString& name) {
    // A colour of its own for each name, steady from run to run.
    quint32 h = 2166136261u;
    for (const QChar c : name)
        h = (h ^ c.unicode()) * 16777619u;
    const QColor fill = QColor::fromHsv(int(h % 360), 150, 190);
    // "C0201400" shows "14", "C0201504" shows "04", "C0200500J" shows "05J"; a name
    // that is no icon code shows its first letter.
    static const QRegularExpression code(QStringLiteral("^C[0-9]{7}([A-Z]*)$"));
    const QRegularExpressionMatch m = code.match(name);
    QString label = name.left(1);
    if (m.hasMatch()) {
        const QString last = name.mid(6, 2);
        label = (last == QLatin1String("00") ? name.mid(4, 2) : last) + m.captured(1).left(1);
    }
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(fill.darker(150), 2));
    p.setBrush(fill);
    p.drawRoundedRect(QRectF(2, 2, 28, 28), 6, 6);
    QFont font = p.font();
    font.setBold(true);
    font.setPixelSize(label.size() > 2 ? 11 : label.size() > 1 ? 14 : 18);
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(QRect(0, 0, 32, 32), Qt::AlignCenter, label);
    p.end();
    return QIcon(pixmap);
}

} // namespace

void IconLibrary::Load(const PlainLayout& layout) {
    treeIcons_.clear();
    icons_.clear();
    for (const PlainLayout::Row& row : layout.RowsOf(QStringLiteral("AddTreeIcon")))
        treeIcons_.insert(row.Arguments.value(0), row.Arguments.value(1));
    for (const PlainLayout::Row& row : layout.RowsOf(QStringLiteral("AddIcon")))
        icons_.insert(row.Arguments.value(0), row.Arguments.value(1));
}

QString IconLibrary::PictureOf(const QString& key) const {
    if (treeIcons_.contains(key))
        return treeIcons_.value(key);
    return icons_.value(key);
}

QIcon IconLibrary::ForKey(const QString& key) const {
    if (key.isEmpty())
        return QIcon();
    const QString picture = PictureOf(key);
    return ForResource(picture.isEmpty() ? key : picture);
}

QIcon IconLibrary::ForResource(const QString& name) const {
    if (name.isEmpty())
        return QIcon();
    const auto cached = cache_.constFind(name);
    if (cached != cache_.constEnd())
        return *cached;
    QIcon icon;
    if (name == QLatin1String("stdClose"))
        icon = QApplication::style()->standardIcon(QStyle::SP_DirClosedIcon);
    else if (name == QLatin1String("stdOpen"))
        icon = QApplication::style()->standardIcon(QStyle::SP_DirOpenIcon);
    else if (const QString path = IconResources::PathFor(name); QFile::exists(path))
        icon = QIcon(path);
    else
        icon = badge(name);
    cache_.insert(name, icon);
    return icon;
}

} // namespace orvo::ui
