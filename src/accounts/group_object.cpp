#include "accounts/group_object.h"

#include "core/null_readers.h"
#include "core/today.h"
#include "frame/messages.h"
#include "frame/methods_convention.h"

namespace orvo {

namespace {

const QString kGroupCode = QStringLiteral("O0201400");
const QString kContractForm = QStringLiteral("O1000100");

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

ValueResult objectResult(const OrvoObjectUIOPtr& object) {
    return object ? ValueResult::Of(Value(std::static_pointer_cast<ObjectBase>(object)))
                  : ValueResult::Of(Value());
}

// Writes a value into the record's row as read, leaving the row's state alone, so that
// a value the record only carries in memory never makes it look changed.
void putQuietly(const RecordsetPtr& rs, const QString& field, const Value& value) {
    if (!rs || rs->RowCountAll() == 0)
        return;
    const int f = rs->FieldIndex(field);
    if (f >= 0)
        rs->SetValueAt(0, f, value);
}

} // namespace

UIO0201400::UIO0201400()
    : OrvoObjectUIOBase(kGroupCode, QStringLiteral("UIO0201400"),
                        QStringLiteral("Finansinių operacijų apskaitos grupė"),
                        PropertiesConvention(
                            {QStringLiteral("FormTypes"), QStringLiteral("MyFirmAccounts")}, {})) {}

ResultRecord UIO0201400::Read() {
    const ResultRecord r = OrvoObjectUIOBase::Read();
    if (!r.ok())
        return r;
    const RecordsetPtr rs = RsFields();
    if (!rs || rs->RecordCount() == 0)
        return r;
    rs->MoveFirst();
    if (OIDR().size() < 9) {
        // A new group counts its numbers from the first day of this year and keeps plain
        // financial operations until another form type is chosen.
        SetField(QStringLiteral("ANDateFrom"), Value(QDate(Today().year(), 1, 1)));
        SetField(QStringLiteral("FormOID"), QStringLiteral("O0201500"));
    } else {
        putQuietly(rs, QStringLiteral("BROperGroupID"), Field(QStringLiteral("ID")));
    }
    return r;
}

OrvoObjectUIOPtr UIO0201400::GroupObject(qint64 id) const {
    if (id <= 0 || !BO())
        return nullptr;
    auto object = Create();
    object->Core().SetBO(BO());
    object->SetUI(UI());
    object->SetOIDR(kGroupCode + QString::number(id));
    if (!object->Read().ok())
        return nullptr;
    return object;
}

qint64 UIO0201400::TemplateGroupID() const {
    if (NzString(Field(QStringLiteral("FormOID"))) == kContractForm) {
        // The document parameters are pairs of a template type and its template,
        // "#"-joined, with the document type after "|".
        const QString pairs =
            NzString(Field(QStringLiteral("Parameters"))).section(QLatin1Char('|'), 0, 0);
        return pairs.split(QLatin1Char('#')).value(1).trimmed().toLongLong();
    }
    return NzLong(Field(QStringLiteral("BRTemplateID")));
}

std::optional<ValueResult> UIO0201400::OwnProperty(const QString& name, const QString& parameters) {
    if (name == QLatin1String("Parent"))
        return objectResult(GroupObject(NzLong(Field(QStringLiteral("ParentID")))));
    if (PropertiesRules().Classify(name) != PropertiesConvention::Path::Direct)
        return std::nullopt;
    QString text = parameters;
    if (text.trimmed().isEmpty()) {
        const QString accountCode = NzString(Field(QStringLiteral("AccountCode")));
        if (name == QLatin1String("PresetAccounts"))
            text = QStringLiteral("'',") + quoted(accountCode);
        else if (name == QLatin1String("AccountSettings"))
            text = quoted(accountCode);
    }
    return PropertiesRules().Query(BO().get(), QStringLiteral("DO0201400_Get") + name, text);
}

ValueResult UIO0201400::Methods(const QString& name, const ValueArray& parameters) {
    if (name.compare(QLatin1String("FillTemplatesTrw"), Qt::CaseInsensitive) == 0)
        return fillTemplatesTrw(parameters);
    return OrvoObjectUIOBase::Methods(name, parameters);
}

ValueResult UIO0201400::fillTemplatesTrw(const ValueArray& parameters) {
    const TreeControlPtr tree =
        parameters.size() == 1
            ? std::dynamic_pointer_cast<TreeControl>(parameters.first().toObject())
            : nullptr;
    if (!tree) {
        const QString text = QStringLiteral("FillTemplatesTrw") + MethodsConvention::LineBreak() +
                             QStringLiteral("Klaida parametruose!");
        ShowWarning(text);
        return ValueResult::Failure(codes::Refused, text);
    }
    tree->Clear();
    const QString root = QStringLiteral("R");
    tree->SetExpanded(tree->AddNode(root, QString(), TemplatesCaption()), true);
    const qint64 templateGroup = TemplateGroupID();
    if (templateGroup <= 0)
        return ValueResult::Of(Value(true));

    const ValueResult list = PropertiesRules().Query(BO().get(), QStringLiteral("GetTemplateList"),
                                                     quoted(QString::number(templateGroup)));
    if (!list.ok())
        return list;
    const RecordsetPtr rs = list.Value.toRecordset();
    if (!rs)
        return ValueResult::Of(Value(true));
    const qint64 chosen = NzLong(Field(QStringLiteral("DefaultTemplateID")));
    // A row hangs under the row whose OwnCode is its ParentCode; rows come parents first.
    QHash<QString, QString> keyByOwnCode;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const qint64 id = NzLong(rs->Field(QStringLiteral("ID")));
        const QString key = QStringLiteral("T") + QString::number(id);
        const QString parent =
            keyByOwnCode.value(NzString(rs->Field(QStringLiteral("ParentCode"))), root);
        QString text = NzString(rs->Field(QStringLiteral("Preview")));
        const QString accounts = NzString(rs->Field(QStringLiteral("AccPreview")));
        if (NzLong(rs->Field(QStringLiteral("GroupFlag"))) == 0 && !accounts.isEmpty())
            text += QStringLiteral(" ") + accounts;
        const int index = tree->AddNode(key, parent, text);
        if (index < 0)
            continue;
        keyByOwnCode.insert(NzString(rs->Field(QStringLiteral("OwnCode"))), key);
        tree->SetBold(index, id == chosen);
        tree->SetExpanded(index, true);
    }
    return ValueResult::Of(Value(true));
}

} // namespace orvo
