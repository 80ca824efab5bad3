#include "accounts/account_plan_navigator.h"

#include "accounts/account_plan_object.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/forms.h"
#include "frame/messages.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_shell_service.h"

namespace orvo {

namespace {

const QString kRoot = QStringLiteral("O0200400");
const QString kAccountCode = QStringLiteral("O0200401");
const QString kFull = QStringLiteral("FULL");

bool isRecord(const QString& oid) {
    return oid.startsWith(kAccountCode) && oid.size() > kAccountCode.size();
}

FormsPtr formsService() {
    const OrvoServicesPtr services = OrvoS();
    return services ? services->FormsService() : nullptr;
}

} // namespace

const QString UI0200400::kNewClass = QStringLiteral("&Nauja klasė");
const QString UI0200400::kPrint = QStringLiteral("Spausdinti");
const QString UI0200400::kPlans = QStringLiteral("Sąskaitų planai");
const QString UI0200400::kConvert = QStringLiteral("Sąskaitų &konvertavimas");
const QString UI0200400::kDesktop = QStringLiteral("Padėti ant darbo stalo");
const QString UI0200400::kNewAccount = QStringLiteral("&Nauja sąskaita");
const QString UI0200400::kNewSubaccount = QStringLiteral("&Nauja subsąskaita");
const QString UI0200400::kMoveDown = QStringLiteral("&Pervesti į žemesnės subsąskaitos lygį");
const QString UI0200400::kDelete = QStringLiteral("Panaikinti");
const QString UI0200400::kSelect = QStringLiteral("&Atrinkti");
const QString UI0200400::kHelp = QStringLiteral("Pagalba");

QString UI0200400::MoveDownQuestion() {
    return QStringLiteral("Šiuo veiksmu bus sukurta nauja subsąskaita ir visi sąskaitos įrašai "
                          "bus perrašyti į sukurtą sąskaitą. Atliktus pakeitimus atstatyti bus "
                          "neįmanoma. ") +
           QStringLiteral("\n") + QStringLiteral("Ar tikrai norite atlikti šį veiksmą?");
}

QString UI0200400::NoFormText(const QString& formName) {
    return QStringLiteral("Langas „%1“ neprieinamas: veiksmo atlikti negalima.").arg(formName);
}

UI0200400::UI0200400()
    : OrvoObjectUIBase(kRoot, QStringLiteral("UI0200400"), QStringLiteral("Sąskaitų planas")) {
    Core().AddIcon(QStringLiteral("Item"), QStringLiteral("C0200400"));
    Core().AddIcon(QStringLiteral("C"), QStringLiteral("C0200400"));
    Core().AddIcon(QStringLiteral("Class"), QStringLiteral("C0200300"));
    Core().AddIcon(QStringLiteral("Group"), QStringLiteral("stdClose"));
    Core().AddIcon(QStringLiteral("Root"), QStringLiteral("stdClose"));
    Core().AddIcon(QStringLiteral("ORoot"), QStringLiteral("stdOpen"));
}

OrvoObjectUIOPtr UI0200400::NewDataObject(const QString& oid) {
    Q_UNUSED(oid);
    auto object = std::make_shared<UIO0200400>();
    object->Core().SetBO(BO());
    return object;
}

RecordsetPtr UI0200400::GetOrvoObjectList(const QString& oid, const QString& from,
                                          const QString& to) {
    if (from.isEmpty() && to.isEmpty())
        return OrvoObjectUIBase::GetOrvoObjectList(oid, planMode_, to);
    return OrvoObjectUIBase::GetOrvoObjectList(oid, from, to);
}

MenuItems UI0200400::GetMenu(const QString& oid, const QString& oType, const QString& groupId) {
    Q_UNUSED(groupId);
    const RightsRecord rights = Catalogue::RightsFor(QStringLiteral("CAccountPlanRights"));
    MenuItems menu;
    auto add = [&menu](const QString& caption, int number, bool checked = false) {
        menu.append({caption, QString::number(number), checked});
    };
    if (!isRecord(oid)) {
        if (rights.Create) {
            add(kNewClass, 1);
            add(kPrint, 3);
            if (oid == kRoot)
                add(kPlans, 5, planMode_ == kFull);
            else
                add(kConvert, 6);
        }
    } else {
        if (rights.Read)
            add(kDesktop, 0);
        if (rights.Create) {
            if (oType == QLatin1String("Class")) {
                add(kNewAccount, 1);
            } else {
                add(kNewSubaccount, 1);
                add(kMoveDown, 2);
            }
        }
        if (rights.Delete)
            add(kDelete, 7);
    }
    add(kSelect, 4);
    add(kHelp, 8);
    return menu;
}

ClickResult UI0200400::ClickMenu(const QString& oid, const QString& parameters,
                                 const QString& caption, const QString& key) {
    Q_UNUSED(parameters);
    ClickResult result;
    if (caption == kDesktop) {
        AddToDeskTopOrvoObject(oid);
        return result;
    }
    if (caption == kNewClass || caption == kNewAccount || caption == kNewSubaccount)
        return newRecord(oid);
    if (caption == kMoveDown)
        return moveDown(oid);
    if (caption == kPrint)
        return openForm(QStringLiteral("ActRepAccPlan"), nullptr, QStringLiteral("All"));
    if (caption == kSelect || key == QLatin1String("70S2"))
        return select(oid);
    if (caption == kPlans) {
        planMode_ = planMode_ == kFull ? QString() : kFull;
        return result;
    }
    if (caption == kConvert)
        return openForm(QStringLiteral("frmAccountNewPlan"), GetOrvoObject(QString()), QString());
    if (caption == kDelete)
        return remove(oid);
    if (caption == kHelp) {
        const OrvoServicesPtr services = OrvoS();
        if (const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr)
            objects->Methods(
                QStringLiteral("ShowHelp"),
                {Value(MessageTitle()), Value(QStringLiteral("help\\saskaituplanas.htm"))});
    }
    return result;
}

ClickResult UI0200400::openForm(const QString& formName, const OrvoObjectUIOPtr& object,
                                const QString& clicked) {
    ClickResult result;
    const FormsPtr forms = formsService();
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

ClickResult UI0200400::newRecord(const QString& oid) {
    const OrvoObjectUIOPtr object = GetOrvoObject(QString());
    if (!object)
        return {};
    // On the root the new record is a class: it has no parent.
    if (isRecord(oid))
        object->SetField(QStringLiteral("ParentID"),
                         Value(double(oid.mid(kAccountCode.size()).toLongLong())));
    else
        object->SetField(QStringLiteral("ParentID"), Value());
    return openForm(QStringLiteral("frmAccountPlan"), object, QStringLiteral("N") + oid);
}

ClickResult UI0200400::moveDown(const QString& oid) {
    ClickResult result;
    if (!AskQuestion(MoveDownQuestion()))
        return result;
    const OrvoObjectUIOPtr object = GetOrvoObject(oid);
    if (!object) {
        ShowError(QStringLiteral("Redaguojama sąskaita nebeegzistuoja!"));
        return result;
    }
    object->Methods(QStringLiteral("MoveAccountDown"), {object->Field(QStringLiteral("ID"))});
    return result;
}

ClickResult UI0200400::remove(const QString& oid) {
    ClickResult result;
    if (!AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return result;
    if (DeleteOrvoObject(oid))
        ShowInformation(QStringLiteral("Sąskaita panaikinta!"));
    else
        ShowError(Core().LastResult().Text);
    return result;
}

ClickResult UI0200400::select(const QString& oid) {
    return NarrowBySelection(oid, [&] { return GetOrvoObjectList(oid, QString(), QString()); });
}

} // namespace orvo
