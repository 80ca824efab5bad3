// AutoNumberMask is the list of a group's number parts as its editor shows them: the
// four parts "Darbuotojo kodas" (UserPrefix), "Auto-numeris" (AutoNumber), "Prefiksas"
// (Prefix) and "Data" (Date), each in or out of the number, in the order the user moved
// them. The group stores only the parts that are in, by name joined by "_" (ANMask);
// the parts left out follow them in the list. The texts of the numbering period and
// scope lists are here too: the group stores the index of the chosen text (ANCycle,
// ANGroupBy), which is how the business object reads them.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo {

class AutoNumberMask {
public:
    struct Part {
        QString Name;
        bool Used = false;
    };

    // The list of a stored mask: its parts in order and in, then the other standard
    // parts out. A part name the list does not know is kept as it stands.
    explicit AutoNumberMask(const QString& anMask = QString());

    const QVector<Part>& Parts() const { return parts_; }
    // The caption of a part ("Data" for Date); an unknown part shows its name.
    static QString Caption(const QString& name);
    // The standard parts by name, in the order of a list with no mask stored.
    static QStringList PartNames();

    // Moves the part one place; false at the end of the list or out of it.
    bool MoveUp(int index);
    bool MoveDown(int index);
    bool SetUsed(int index, bool used);

    // The parts in use joined by "_", as ANMask keeps them.
    QString Text() const;
    // A sample number of the mask for the prefix, template, first counter, user prefix
    // and date, built by the operations' own rule.
    QString Example(const QString& prefix, const QString& anTemplate, qint32 counter,
                    const QString& userPref, const QDate& date) const;

    // "Diena", "Mėnuo", "Ketvirtis", "Metai": ANCycle is the index.
    static QStringList CycleTexts();
    // "Pagal bendrą skaitliuką" ... "Pagal dokumentų tipą ir vartotoją": ANGroupBy is the
    // index.
    static QStringList GroupByTexts();

private:
    QVector<Part> parts_;
};

} // namespace orvo
