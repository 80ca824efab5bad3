#include "host/catalogues/catalogue_editor.h"

#include "core/number_text.h"
#include "core/recordset.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/messages.h"
#include "frame/orvo_constants_service.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_session_service.h"
#include "host/catalogues/catalogue_editor_rules.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

namespace orvo::host {

namespace {

bool isNumberField(const OrvoObjectUIOPtr& object, const QString& name) {
    const RecordsetPtr rs = object ? object->RsFields() : nullptr;
    const int f = rs ? rs->FieldIndex(name) : -1;
    if (f < 0)
        return false;
    const FieldType type = rs->FieldDefinitions().at(f).type;
    return IsIntegerType(type) || IsFractionalType(type);
}

} // namespace

CatalogueEditor::CatalogueEditor(OrvoObjectUIOPtr object) : object_(std::move(object)) {}

CatalogueEditor::~CatalogueEditor() = default;

OrvoObjectUIOPtr CatalogueEditor::OwnFirmObject() {
    const OrvoServicesPtr services = OrvoS();
    if (!services)
        return nullptr;
    const OrvoObjectsServicePtr objects = services->ObjectsService();
    if (!objects)
        return nullptr;
    QString oidr;
    if (const OrvoSessionServicePtr session = services->SessionService())
        if (const auto constants = session->Constants())
            if (const RecordsetPtr firm = constants->MyFirm(); firm && firm->RecordCount() > 0) {
                firm->MoveFirst();
                oidr = firm->Field(QStringLiteral("OIDR")).toString();
            }
    if (oidr.size() >= 9)
        if (OrvoObjectUIOPtr own = objects->GetObjectUIO(oidr))
            return own;
    OrvoObjectUIOPtr blank = objects->GetObjectUIO(kinds::Firm);
    if (blank)
        blank->SetField(QStringLiteral("MyFirmFlag"), Value(true));
    return blank;
}

QString CatalogueEditor::valueText(const Value& v) {
    if (v.isNull())
        return QString();
    if (v.kind() == Value::Kind::Double) {
        QString t = QString::number(v.toDouble(), 'g', 15);
        return t.replace(QLatin1Char('.'), QChar(DecimalMark));
    }
    return v.toString();
}

QString CatalogueEditor::referenceName(const QString& oidr) {
    if (oidr.trimmed().size() < 9)
        return QString();
    const OrvoObjectUIOPtr uio = Catalogue::GetUIOByOIDR(oidr.trimmed());
    if (!uio)
        return oidr;
    const QString name = QString(uio->Field(QStringLiteral("Name")).toString() + QLatin1Char(' ') +
                                 uio->Field(QStringLiteral("LastName")).toString())
                             .trimmed();
    return name.isEmpty() ? uio->OName() : name;
}

const CatalogueField* CatalogueEditor::FieldNamed(const QString& name) const {
    for (const CatalogueField& f : fields_)
        if (f.Name == name)
            return &f;
    return nullptr;
}

ResultRecord CatalogueEditor::Load() {
    if (!object_)
        return ResultRecord::Failure(codes::RefusedNoWarning, QStringLiteral("Nėra įrašo."));
    const QString oidr = object_->OIDR();
    kind_ = (oidr.size() >= 8 ? oidr : object_->OID()).left(8);
    fields_ = CatalogueFieldsOf(kind_);
    rights_ = Catalogue::RightsFor(CatalogueRightKeyOf(kind_));
    texts_.clear();
    flags_.clear();
    referenceTexts_.clear();
    for (const CatalogueField& f : fields_) {
        const Value v = object_->Field(f.Name);
        if (f.Type == CatalogueField::Kind::Flag) {
            flags_.insert(f.Name, !v.isNull() && v.toBool());
            continue;
        }
        texts_.insert(f.Name, valueText(v));
        if (f.Type == CatalogueField::Kind::Reference)
            referenceTexts_.insert(f.Name, referenceName(valueText(v)));
    }
    changed_ = false;
    afterLoad();
    return ResultRecord::Success();
}

QString CatalogueEditor::WindowTitle() const {
    const QString title = CatalogueRecordTitle(kind_);
    if (kind_ == kinds::Firm && Flag(QStringLiteral("MyFirmFlag")))
        return IsNew() ? QStringLiteral("Mano įmonė")
                       : QStringLiteral("Mano įmonė: ") + Text(QStringLiteral("Name"));
    if (IsNew())
        return title + QStringLiteral(" – naujas įrašas");
    QString name =
        kind_ == kinds::BankAccount ? Text(QStringLiteral("AccountNumber"))
        : kind_ == kinds::Currency || kind_ == kinds::User
            ? Text(QStringLiteral("Code")) + QLatin1Char(' ') + Text(QStringLiteral("Name"))
            : Text(QStringLiteral("Name")) + QLatin1Char(' ') + Text(QStringLiteral("LastName"));
    return title + QStringLiteral(": ") + name.trimmed();
}

void CatalogueEditor::SetText(const QString& name, const QString& text) {
    if (texts_.value(name) == text)
        return;
    texts_.insert(name, text);
    changed_ = true;
}

void CatalogueEditor::SetFlag(const QString& name, bool on) {
    if (flags_.value(name) == on)
        return;
    flags_.insert(name, on);
    changed_ = true;
}

QVector<CatalogueChoice> CatalogueEditor::Choices(const QString&) const {
    return {};
}

bool CatalogueEditor::TakeReference(const QString& name, const QString& picked) {
    const CatalogueField* field = FieldNamed(name);
    if (!field || field->Type != CatalogueField::Kind::Reference)
        return false;
    const int cut = picked.indexOf(QLatin1Char('_'));
    const QString oidr = (cut < 0 ? picked : picked.left(cut)).trimmed();
    if (oidr.size() < 9 || !field->PickKinds.split(QLatin1Char(';')).contains(oidr.left(8)))
        return false;
    SetText(name, oidr);
    const QString shown = cut < 0 ? QString() : picked.mid(cut + 1).trimmed();
    referenceTexts_.insert(name, shown.isEmpty() ? referenceName(oidr) : shown);
    return true;
}

bool CatalogueEditor::IsNew() const {
    return !object_ || object_->OIDR().size() < 9;
}

QString CatalogueEditor::Refusal() const {
    return CatalogueRecordRefusal(kind_, [this](const QString& name) {
        const CatalogueField* f = FieldNamed(name);
        if (f && f->Type == CatalogueField::Kind::Flag)
            return Flag(name) ? QStringLiteral("1") : QString();
        return Text(name);
    });
}

ResultRecord CatalogueEditor::refuse(const QString& text) const {
    ShowWarning(text);
    return ResultRecord::Failure(codes::Refused, text);
}

QString CatalogueEditor::rightRefusal(Action action) const {
    switch (action) {
    case Action::Create:
        return rights_.Create ? QString()
                              : QStringLiteral("Neturite teisės kurti naujų šio žinyno įrašų.");
    case Action::Edit:
        return rights_.Edit ? QString()
                            : QStringLiteral("Neturite teisės keisti šio žinyno įrašų.");
    case Action::Delete:
        return rights_.Delete ? QString()
                              : QStringLiteral("Neturite teisės naikinti šio žinyno įrašų.");
    }
    return QString();
}

QVector<CatalogueChoice> CatalogueEditor::recordChoices(const QString& code) const {
    QVector<CatalogueChoice> choices{{QString(), QStringLiteral("(nenurodytas)")}};
    const BusinessObjectPtr bo = object_ ? object_->BO() : nullptr;
    if (!bo)
        return choices;
    const BOResult list =
        bo->Call(QStringLiteral("D") + code + QStringLiteral("_GetOrvoObjectList"),
                 QStringLiteral("'','',''"));
    if (const RecordsetPtr rs = list.ok() ? list.Data.toRecordset() : nullptr)
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            choices.append({rs->Field(QStringLiteral("OIDR")).toString().mid(code.size()),
                            rs->Field(QStringLiteral("Preview")).toString()});
    return choices;
}

void CatalogueEditor::writeFields() {
    for (const CatalogueField& f : fields_) {
        const Value current = object_->Field(f.Name);
        if (f.Type == CatalogueField::Kind::Flag) {
            const bool on = Flag(f.Name);
            if (current.isNull() || current.toBool() != on)
                object_->SetField(f.Name, Value(on));
            continue;
        }
        // A choice's value is kept as it stands (three blanks are the base currency);
        // typed texts lose their outer blanks.
        const QString text =
            f.Type == CatalogueField::Kind::Choice ? Text(f.Name) : Text(f.Name).trimmed();
        if (text == valueText(current).trimmed() && f.Type != CatalogueField::Kind::Choice)
            continue;
        if (f.Type == CatalogueField::Kind::Choice && text == valueText(current))
            continue;
        if (f.Type == CatalogueField::Kind::Number || isNumberField(object_, f.Name)) {
            object_->SetField(f.Name,
                              text.trimmed().isEmpty() ? Value() : Value(NumberFromText(text)));
            continue;
        }
        object_->SetField(f.Name, text.isEmpty() && current.isNull() ? Value() : Value(text));
    }
}

ResultRecord CatalogueEditor::Save() {
    if (!object_)
        return ResultRecord::Failure(codes::RefusedNoWarning, QStringLiteral("Nėra įrašo."));
    if (const QString no = rightRefusal(IsNew() ? Action::Create : Action::Edit); !no.isEmpty())
        return refuse(no);
    normalize();
    if (const QString refusal = Refusal(); !refusal.isEmpty())
        return refuse(refusal);
    writeFields();
    ResultRecord r = beforeSave();
    if (r.ok())
        r = object_->Save();
    if (!r.ok()) {
        ShowError(r.Text + QStringLiteral("\n") + QStringLiteral("Įrašymas neatliktas !"));
        return r;
    }
    return Load();
}

ResultRecord CatalogueEditor::Undo() {
    if (!object_)
        return ResultRecord::Failure(codes::RefusedNoWarning, QStringLiteral("Nėra įrašo."));
    const bool own = kind_ == kinds::Firm && IsNew() && Flag(QStringLiteral("MyFirmFlag"));
    object_->CancelUpdate();
    const ResultRecord r = object_->Read();
    if (!r.ok()) {
        ShowError(r.Text);
        return r;
    }
    if (own)
        object_->SetField(QStringLiteral("MyFirmFlag"), Value(true));
    return Load();
}

ResultRecord CatalogueEditor::Delete() {
    if (!object_ || IsNew())
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     QStringLiteral("Įrašas dar neįrašytas."));
    if (const QString no = rightRefusal(Action::Delete); !no.isEmpty())
        return refuse(no);
    const BusinessObjectPtr bo = object_->BO();
    if (!bo)
        return ResultRecord::Failure(codes::RefusedNoWarning, QStringLiteral("Knyga neatidaryta."));
    const BOResult r = bo->Call(QStringLiteral("D") + kind_ + QStringLiteral("_DeleteOrvoObject"),
                                QStringLiteral("'") + object_->OIDR() + QStringLiteral("'"));
    if (!r.ok()) {
        ShowError(r.Text);
        return ResultRecord::Failure(r.Code, r.Text);
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
