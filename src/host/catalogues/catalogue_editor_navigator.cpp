#include "host/catalogues/catalogue_editor_navigator.h"

#include "frame/catalogue_rights_forms.h"
#include "frame/forms.h"
#include "frame/messages.h"
#include "frame/orvo_form.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "host/catalogues/catalogue_editor.h"
#include "host/catalogues/catalogue_editor_fields.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

namespace orvo::host {

const QString CatalogueNavigator::kOpen = QStringLiteral("Atidaryti");
const QString CatalogueNavigator::kDelete = QStringLiteral("Panaikinti");
const QString CatalogueNavigator::kOwnFirm = QStringLiteral("Mano įmonė");

CatalogueNavigator::CatalogueNavigator(const QString& code, const QString& title)
    : OrvoObjectUIBase(code.left(8), QStringLiteral("UI") + code.mid(1, 7), title),
      code_(code.left(8)) {}

QString CatalogueNavigator::NewCaption(const QString& code) {
    return CatalogueNewRecordCaption(code);
}

MenuItems CatalogueNavigator::GetMenu(const QString& oid, const QString&, const QString&) {
    const RightsRecord rights = Catalogue::RightsFor(CatalogueRightKeyOf(code_));
    MenuItems menu;
    if (oid.trimmed().size() < 9) {
        if (rights.Create)
            menu.append({NewCaption(code_), QString()});
        if (code_ == kinds::Firm && rights.Read)
            menu.append({kOwnFirm, QString()});
        return menu;
    }
    if (rights.Read)
        menu.append({kOpen, QString()});
    if (rights.Delete)
        menu.append({kDelete, QString()});
    return menu;
}

ClickResult CatalogueNavigator::showForm(const QString& formName, const OrvoObjectUIOPtr& object) {
    if (!object)
        return {};
    const OrvoServicesPtr services = Services();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    const OrvoFormPtr form = forms ? forms->CreateForm(formName) : nullptr;
    if (!form) {
        ShowError(QStringLiteral("Langas „%1“ neprieinamas.").arg(formName));
        return {};
    }
    form->SetOrvoObjectUIO(object);
    form->SetClickedParameters(QString());
    ClickResult result;
    result.Action = ClickResult::ShowForm;
    result.Payload = Value(std::static_pointer_cast<ObjectBase>(form));
    return result;
}

ClickResult CatalogueNavigator::ClickMenu(const QString& oid, const QString&,
                                          const QString& caption, const QString&) {
    const RightsRecord rights = Catalogue::RightsFor(CatalogueRightKeyOf(code_));
    const bool isRecord = oid.trimmed().size() >= 9;
    if (caption == NewCaption(code_)) {
        if (!rights.Create)
            return {};
        return showForm(CatalogueFormNameOf(code_), GetOrvoObject(code_));
    }
    if (caption == kOwnFirm && code_ == kinds::Firm) {
        if (!rights.Read)
            return {};
        return showForm(kOwnFirmFormName, CatalogueEditor::OwnFirmObject());
    }
    if (!isRecord)
        return {};
    if (caption.isEmpty() || caption == kOpen) {
        if (!rights.Read)
            return {};
        const OrvoObjectUIOPtr object = GetOrvoObject(oid.trimmed());
        if (!object) {
            ShowError(QStringLiteral("Įrašas panaikintas !"));
            return {};
        }
        return showForm(CatalogueFormNameOf(code_), object);
    }
    if (caption == kDelete) {
        if (!rights.Delete || !AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
            return {};
        const BusinessObjectPtr bo = BO();
        if (!bo)
            return {};
        const BOResult r =
            bo->Call(QStringLiteral("D") + code_ + QStringLiteral("_DeleteOrvoObject"),
                     QStringLiteral("'") + oid.trimmed() + QStringLiteral("'"));
        if (!r.ok())
            ShowError(r.Text);
    }
    return {};
}

void RegisterCatalogueNavigators(ObjectRegistry& registry) {
    ObjectKindRegistry kinds;
    AddCatalogueKinds(kinds);
    for (const QString& code : CatalogueEditorKinds()) {
        const ObjectKindPtr kind = kinds.Find(code);
        const QString title = kind ? kind->Title : code;
        registry.RegisterNavigator(code, [title](const QString& c) {
            return std::make_shared<CatalogueNavigator>(c.left(8), title);
        });
    }
}

} // namespace orvo::host
