#include "accounts/forms/account_forms_registration.h"

#include "accounts/forms/account_plan_form.h"
#include "accounts/forms/account_plan_report_form.h"
#include "accounts/forms/document_parameters_form.h"
#include "accounts/forms/group_form.h"
#include "accounts/forms/template_entry_form.h"
#include "accounts/forms/template_form.h"
#include "accounts/forms/template_report_form.h"
#include "accounts/forms/template_select_form.h"
#include "frame/form_registry.h"

namespace orvo {

void RegisterAccountForms(FormRegistry& registry) {
    using namespace accounts_forms;
    registry.Register(QStringLiteral("frmAccountPlan"),
                      []() { return std::make_shared<FrmAccountPlan>(); });
    registry.Register(QStringLiteral("ActRepAccPlan"),
                      []() { return std::make_shared<ActRepAccPlan>(); });
    registry.Register(QStringLiteral("frmBRTemplate"),
                      []() { return std::make_shared<FrmBRTemplate>(); });
    registry.Register(QStringLiteral("frmBRTemplateAcc"),
                      []() { return std::make_shared<FrmBRTemplateAcc>(); });
    registry.Register(QStringLiteral("frmBROperTemplateSelect"),
                      []() { return std::make_shared<FrmBROperTemplateSelect>(); });
    registry.Register(QStringLiteral("ActRepTemplates"),
                      []() { return std::make_shared<ActRepTemplates>(); });
    registry.Register(QStringLiteral("frmBROperGroup"),
                      []() { return std::make_shared<FrmBROperGroup>(); });
    registry.Register(QStringLiteral("frmDocumentParameters"),
                      []() { return std::make_shared<FrmDocumentParameters>(); });
}

} // namespace orvo
