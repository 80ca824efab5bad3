#include "frame/catalogue_addressees.h"

#include "core/null_readers.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo::Catalogue {

namespace {

// The BRProperties of the operation's current entry, or null.
RecordsetPtr currentProperties(const OrvoObjectUIOPtr& uio) {
    if (!uio)
        return nullptr;
    const RecordsetPtr br = uio->Field(QStringLiteral("BR")).toRecordset();
    if (!br || br->Bof() || br->Eof())
        return nullptr;
    return br->Field(QStringLiteral("BRProperties")).toRecordset();
}

} // namespace

QString AddresseeDialogTitle(const QString& code) {
    if (code.left(8) == QLatin1String("O0000100"))
        return QStringLiteral("Pasirinkite įmonę, paieškos tekstą įveskite per [Ctrl + F]");
    return QStringLiteral("Pažymėkite norimą adresatą");
}

QString SelectAddressee(const QString& code, const QString& title, const QString& field,
                        const QString& filter) {
    const OrvoServicesPtr services = OrvoS();
    const PickersPtr pickers = services ? services->PickersService() : nullptr;
    if (!pickers)
        return QString();
    const QString answer = pickers->PickObject(code.left(8), title, field, filter);
    if (answer.isEmpty())
        return QString();
    return AddresseeTail(answer);
}

QString AddresseeTail(const QString& answer) {
    if (answer.size() < 9)
        return answer;
    const int underscore = answer.indexOf(QLatin1Char('_'));
    const QString reference = underscore < 0 ? answer : answer.left(underscore);
    const int last = reference.lastIndexOf(QLatin1Char('O'));
    if (last <= 0)
        return answer;
    return answer.mid(last);
}

void FillAddresseeChecks(CheckListControl& list, const RecordsetPtr& rows,
                         const QString& selected) {
    list.Clear();
    if (!rows)
        return;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        const QString key = NzString(rows->Field(QStringLiteral("FOID")));
        const int index = list.AddItem(key, NzString(rows->Field(QStringLiteral("Name"))));
        if (!key.isEmpty() && selected.contains(key))
            list.SetChecked(index, true);
    }
}

QString FindProperty(const OrvoObjectUIOPtr& uio, const QString& code) {
    const RecordsetPtr props = currentProperties(uio);
    if (!props)
        return QString();
    const QString oldFilter = props->Filter();
    const qint64 bookmark = props->Bookmark();
    QString found;
    if (props->SetFilter(QStringLiteral(" FOIDR  like '") + code + QStringLiteral("*' ")).ok() &&
        props->RecordCount() > 0) {
        props->MoveFirst();
        found = NzString(props->Field(QStringLiteral("FOIDR")));
    }
    props->SetFilter(oldFilter);
    if (bookmark >= 0)
        props->SetBookmark(bookmark);
    return found;
}

QString BuildPropertyText(const OrvoObjectUIOPtr& uio, qint16 sign) {
    const RecordsetPtr props = currentProperties(uio);
    if (!props)
        return QString();
    const int signField = props->FieldIndex(QStringLiteral("Sign"));
    const int textField = props->FieldIndex(QStringLiteral("ShowString"));
    if (signField < 0 || textField < 0)
        return QString();
    const bool debit = sign == 1;
    QStringList texts;
    for (int row = 0; row < props->RowCountAll(); ++row) {
        if (props->StatusAt(row) == RowStatus::Deleted)
            continue;
        const bool rowDebit = NzInt(props->ValueAt(row, signField)) == 1;
        if (rowDebit != debit)
            continue;
        const QString text = NzString(props->ValueAt(row, textField));
        if (!text.isEmpty())
            texts.append(text);
    }
    return texts.join(QStringLiteral("; "));
}

} // namespace orvo::Catalogue
