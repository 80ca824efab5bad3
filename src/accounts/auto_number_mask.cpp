#include "accounts/auto_number_mask.h"

#include "operations/auto_numbering.h"

namespace orvo {

namespace {

struct Named {
    const char* name;
    const char* caption;
};

// The list's order when the group has no mask yet.
constexpr Named kParts[] = {{"UserPrefix", "Darbuotojo kodas"},
                            {"AutoNumber", "Auto-numeris"},
                            {"Prefix", "Prefiksas"},
                            {"Date", "Data"}};

} // namespace

AutoNumberMask::AutoNumberMask(const QString& anMask) {
    for (const QString& name : anMask.split(QLatin1Char('_'), Qt::SkipEmptyParts))
        parts_.append({name.trimmed(), true});
    for (const QString& name : PartNames()) {
        bool present = false;
        for (const Part& p : parts_)
            present = present || p.Name == name;
        if (!present)
            parts_.append({name, false});
    }
}

QStringList AutoNumberMask::PartNames() {
    QStringList names;
    for (const Named& p : kParts)
        names << QString::fromLatin1(p.name);
    return names;
}

QString AutoNumberMask::Caption(const QString& name) {
    for (const Named& p : kParts)
        if (name == QLatin1String(p.name))
            return QString::fromUtf8(p.caption);
    return name;
}

bool AutoNumberMask::MoveUp(int index) {
    if (index <= 0 || index >= parts_.size())
        return false;
    parts_.swapItemsAt(index, index - 1);
    return true;
}

bool AutoNumberMask::MoveDown(int index) {
    if (index < 0 || index + 1 >= parts_.size())
        return false;
    parts_.swapItemsAt(index, index + 1);
    return true;
}

bool AutoNumberMask::SetUsed(int index, bool used) {
    if (index < 0 || index >= parts_.size() || parts_[index].Used == used)
        return false;
    parts_[index].Used = used;
    return true;
}

QString AutoNumberMask::Text() const {
    QStringList used;
    for (const Part& p : parts_)
        if (p.Used)
            used << p.Name;
    return used.join(QLatin1Char('_'));
}

QString AutoNumberMask::Example(const QString& prefix, const QString& anTemplate, qint32 counter,
                                const QString& userPref, const QDate& date) const {
    return AutoNumbering::BuildAutoNumber(Text(), prefix, anTemplate, counter, userPref, date);
}

QStringList AutoNumberMask::CycleTexts() {
    return {QStringLiteral("Diena"), QStringLiteral("Mėnuo"), QStringLiteral("Ketvirtis"),
            QStringLiteral("Metai")};
}

QStringList AutoNumberMask::GroupByTexts() {
    return {QStringLiteral("Pagal bendrą skaitliuką"),
            QStringLiteral("Pagal dokumentų grupę"),
            QStringLiteral("Pagal vartotoją"),
            QStringLiteral("Pagal grupę ir vartotoją"),
            QStringLiteral("Pagal dokumentų tipą"),
            QStringLiteral("Pagal dokumentų tipą ir vartotoją")};
}

} // namespace orvo
