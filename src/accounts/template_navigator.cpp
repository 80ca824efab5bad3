#include "accounts/template_navigator.h"

#include "accounts/template_object.h"
#include "frame/forms.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_shell_service.h"

namespace orvo {

namespace {

const QString kCode = QStringLiteral("O0201600");

bool isRecord(const QString& oid) {
    return oid.startsWith(kCode) && oid.size() > kCode.size();
}

qint64 recordId(const QString& oid) {
    return isRecord(oid) ? oid.mid(kCode.size()).toLongLong() : 0;
}

} // namespace

const QString UI0201600::kNewGroup = QStringLiteral("Naują šablonų grupė");
const QString UI0201600::kDesktop = QStringLiteral("Padėti ant darbo stalo");
const QString UI0201600::kNewSubgroup = QStringLiteral("Naujas pogrupis");
const QString UI0201600::kNewTemplate = QStringLiteral("Naujas šablonas");
const QString UI0201600::kPrint = QStringLiteral("Spausdinti");
const QString UI0201600::kDelete = QStringLiteral("Panaikinti");
const QString UI0201600::kSelect = QStringLiteral("Atrinkti");

QString UI0201600::NoFormText(const QString& formName) {
    return QStringLiteral("Langas „%1“ neprieinamas: veiksmo atlikti negalima.").arg(formName);
}

UI0201600::UI0201600()
    : OrvoObjectUIBase(kCode, QStringLiteral("UI0201600"),
                       QStringLiteral("Finansinių operacijų šablonai")) {
    Core().AddIcon(QStringLiteral("Item"), QStringLiteral("C0201600"));
    Core().AddIcon(QStringLiteral("C"), QStringLiteral("C0201600"));
    Core().AddIcon(QStringLiteral("Group"), QStringLiteral("stdClose"));
    Core().AddIcon(QStringLiteral("Root"), QStringLiteral("stdClose"));
    Core().AddIcon(QStringLiteral("ORoot"), QStringLiteral("stdOpen"));
}

OrvoObjectUIOPtr UI0201600::NewDataObject(const QString& oid) {
    Q_UNUSED(oid);
    auto object = std::make_shared<UIO0201600>();
    object->Core().SetBO(BO());
    return object;
}

bool UI0201600::isGroup(const QString& oid, const QString& oType) {
    if (oType == QLatin1String("Group"))
        return true;
    if (!oType.isEmpty())
        return false;
    // The host may ask without the row kind: the record itself says.
    const OrvoObjectUIOPtr object = GetOrvoObject(oid);
    return object && object->Field(QStringLiteral("GroupFlag")).toBool();
}

MenuItems UI0201600::GetMenu(const QString& oid, const QString& oType, const QString& groupId) {
    Q_UNUSED(groupId);
    MenuItems menu;
    auto add = [&menu](const QString& caption, int number) {
        menu.append({caption, QString::number(number), false});
    };
    const bool record = isRecord(oid);
    const bool group = record && isGroup(oid, oType);
    if (!record)
        add(kNewGroup, 1);
    if (record)
        add(kDesktop, 2);
    if (group) {
        add(kNewSubgroup, 3);
        add(kNewTemplate, 4);
    }
    add(kPrint, 5);
    if (record)
        add(kDelete, 6);
    add(kSelect, 7);
    return menu;
}

ClickResult UI0201600::ClickMenu(const QString& oid, const QString& parameters,
                                 const QString& caption, const QString& key) {
    Q_UNUSED(parameters);
    ClickResult result;
    if (caption == kDesktop) {
        AddToDeskTopOrvoObject(oid);
        return result;
    }
    if (caption == kNewGroup || caption == kNewSubgroup)
        return newRecord(oid, true);
    if (caption == kNewTemplate)
        return newRecord(oid, false);
    if (caption == kPrint)
        return openForm(QStringLiteral("ActRepTemplates"), nullptr,
                        isRecord(oid) ? QString::number(recordId(oid)) : QStringLiteral("ALL"));
    if (caption == kDelete)
        return remove(oid);
    if (caption == kSelect || key == QLatin1String("70S2"))
        return select(oid);
    return result;
}

ClickResult UI0201600::openForm(const QString& formName, const OrvoObjectUIOPtr& object,
                                const QString& clicked) {
    ClickResult result;
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    const OrvoFormPtr form = forms ? forms->CreateForm(formName) : nullptr;
    if (!form) {
        ShowError(NoFormText(formName));
        return result;
    }
    if (object)
        form->SetOrvoObjectUIO(object);
    form->SetClickedParameters(clicked);
    result.Action = ClickResult::ShowForm;
    result.Payload = Value(std::static_pointer_cast<ObjectBase>(form));
    return result;
}

ClickResult UI0201600::newRecord(const QString& oid, bool group) {
    const OrvoObjectUIOPtr object = GetOrvoObject(QString());
    if (!object)
        return {};
    const qint64 parent = recordId(oid);
    object->SetField(QStringLiteral("ParentID"), parent > 0 ? Value(double(parent)) : Value());
    object->SetField(QStringLiteral("GroupFlag"), Value(group));
    return openForm(QStringLiteral("frmBRTemplate"), object, QStringLiteral("N") + oid);
}

ClickResult UI0201600::remove(const QString& oid) {
    ClickResult result;
    if (!AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return result;
    if (!DeleteOrvoObject(oid))
        ShowError(Core().LastResult().Text);
    return result;
}

ClickResult UI0201600::select(const QString& oid) {
    return NarrowBySelection(oid, [&] { return GetOrvoObjectList(oid, QString(), QString()); });
}

} // namespace orvo
