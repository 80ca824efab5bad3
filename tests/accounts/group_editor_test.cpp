// GroupEditor, what the operation group's window decides without its widgets: the
// defaults and titles of new and stored groups, the tabs of each form type, the parts of
// the number in the user's order, the refusal of a contract document group without
// templates, a save read back, computing and clearing the group's debts through one
// method, the parameter windows of the form types, and the question on closing.
#include "accounts/group_editor.h"
#include "accounts/template_registration.h"
#include "group_fixture.h"
#include "host/session/scripted_choices.h"

namespace orvo::accounts_testing {
namespace {

// The session's business object, with every call it passes on written down.
class RecordingBO : public BusinessObject {
public:
    explicit RecordingBO(BusinessObjectPtr inner) : inner_(std::move(inner)) {}
    void Run(const QString& methodName, const QString& parameterText, const QString& options,
             BOResult& result) override {
        calls.append({methodName, parameterText});
        inner_->Run(methodName, parameterText, options, result);
    }
    QList<QPair<QString, QString>> calls;

private:
    BusinessObjectPtr inner_;
};

// A parameter window that writes the group's Parameters, as the documents' windows do.
class ParametersWriter : public PlainForm {
public:
    ParametersWriter() : PlainForm(QStringLiteral("frmTransferParameters")) {}
    void SetOrvoObjectUIO(const OrvoObjectUIOPtr& uio) override { uio_ = uio; }
    void Show(bool) override {
        seen = uio_->Field(QStringLiteral("Parameters")).toString();
        uio_->SetField(QStringLiteral("Parameters"), QStringLiteral("x#y#z#1#2#0"));
    }
    static inline QString seen;

private:
    OrvoObjectUIOPtr uio_;
};

class GroupEditorTest : public GroupTest {
protected:
    void SetUp() override {
        GroupTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        RegisterTemplateClasses();
    }

    // A new group as the navigator's menu makes it.
    OrvoObjectUIOPtr NewGroup(bool general, qint64 parent = 0) {
        OrvoObjectUIOPtr object = navigator_->GetOrvoObject(QString());
        EXPECT_TRUE(object);
        if (parent > 0)
            object->SetField(QStringLiteral("ParentID"), Value(double(parent)));
        object->SetField(QStringLiteral("GroupFlag"), Value(general ? 1 : 0));
        return object;
    }

    OrvoObjectUIOPtr Stored(qint64 id) { return navigator_->GetOrvoObject(GroupOID(id)); }

    std::unique_ptr<GroupEditor> Open(const OrvoObjectUIOPtr& object) {
        auto editor = std::make_unique<GroupEditor>(object);
        EXPECT_TRUE(editor->Load().ok());
        return editor;
    }

    QStringList Texts(MessageKind kind) {
        QStringList out;
        for (const host::RecordedMessage& m : session_->Messages()->Take())
            if (m.Kind == kind)
                out << m.Text;
        return out;
    }

    qint64 DebtRows(qint64 id) {
        const BOResult r =
            session_->BO()->Call(QStringLiteral("DO0201400_GetGroupDebts"), QString::number(id));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset() ? r.Data.toRecordset()->RecordCount() : -1;
    }
};

TEST_P(GroupEditorTest, ANewGroupDefaultsToTheFirstDayOfThisYearAndToFormTypeO0201500) {
    const auto editor = Open(NewGroup(false));
    EXPECT_EQ(editor->ANDateFrom, QDate(2024, 1, 1));
    EXPECT_EQ(editor->FormOID, QStringLiteral("O0201500"));
    editor->Name = QStringLiteral("Kasa");
    ASSERT_TRUE(editor->Write().ok());
    const OrvoObjectUIOPtr stored = editor->Object();
    EXPECT_EQ(
        stored->Field(QStringLiteral("ANDateFrom")).toDate().toString(QStringLiteral("yyyy.MM.dd")),
        QStringLiteral("2024.01.01"));
    EXPECT_EQ(stored->Field(QStringLiteral("FormOID")).toString(), QStringLiteral("O0201500"));
}

TEST_P(GroupEditorTest, TheTitlesOfTheFourCases) {
    const qint64 general = AddGroup(QStringLiteral("Bendra"), 0, true);
    const qint64 plain = AddGroup(QStringLiteral("Kasa"), general);
    EXPECT_EQ(Open(NewGroup(true))->Title(), QStringLiteral(" Nauja bendra grupė"));
    EXPECT_EQ(Open(NewGroup(false))->Title(), QStringLiteral(" Nauja finansinių operacijų grupė"));
    EXPECT_EQ(Open(Stored(general))->Title(), QStringLiteral(" Bendra grupė"));
    const auto stored = Open(Stored(plain));
    EXPECT_EQ(stored->Title(), QStringLiteral(" Finansinių operacijų grupė"));
    EXPECT_EQ(stored->ParentGroupText, QStringLiteral("Bendra"));
    EXPECT_FALSE(stored->IsGeneral());
}

TEST_P(GroupEditorTest, TheAutonumberTabShowsOnlyForTheFormTypesThatHaveNumbers) {
    const auto editor = Open(NewGroup(false));
    const QVector<GroupEditor::FormType> types = editor->FormTypes();
    ASSERT_EQ(types.size(), 9);
    EXPECT_EQ(types.first().OID, QStringLiteral("O0201500"));
    const QStringList numbered = {"O0201500", "O0201501", "O0201502",
                                  "O0201506", "O0202000", "O1000100"};
    for (const GroupEditor::FormType& t : types) {
        editor->FormOID = t.OID;
        const QStringList tabs = editor->Tabs();
        if (numbered.contains(t.OID))
            EXPECT_EQ(tabs, QStringList({"Templates", "Autonumber", "DebtSettings"}))
                << t.OID.toStdString();
        else
            EXPECT_EQ(tabs, QStringList({"Templates", "DebtSettings"})) << t.OID.toStdString();
    }
    EXPECT_EQ(GroupEditor::TabCaption(QStringLiteral("Templates")),
              QStringLiteral("Operacijų šablonai"));
    EXPECT_EQ(GroupEditor::TabCaption(QStringLiteral("Autonumber")),
              QStringLiteral("Auto-numeris"));
    EXPECT_EQ(GroupEditor::TabCaption(QStringLiteral("DebtSettings")),
              QStringLiteral("Skolų atpažinimo nustatymas"));
    EXPECT_TRUE(Open(NewGroup(true))->Tabs().isEmpty());
}

TEST_P(GroupEditorTest, TheMaskOrderComesBackAsItWasMovedAndStored) {
    const qint64 id = AddGroup(QStringLiteral("Kasa"));
    {
        const auto editor = Open(Stored(id));
        AutoNumberMask& mask = editor->Mask();
        // A group with no mask lists the four parts, none in use.
        ASSERT_EQ(mask.Parts().size(), 4);
        EXPECT_EQ(AutoNumberMask::Caption(mask.Parts().at(0).Name),
                  QStringLiteral("Darbuotojo kodas"));
        EXPECT_TRUE(mask.Text().isEmpty());
        // Date first, then the prefix, then the counter; the user's code stays out.
        ASSERT_TRUE(mask.MoveUp(3));
        ASSERT_TRUE(mask.MoveUp(2));
        ASSERT_TRUE(mask.MoveUp(1));
        EXPECT_EQ(mask.Parts().at(0).Name, QStringLiteral("Date"));
        EXPECT_FALSE(mask.MoveDown(3));
        ASSERT_TRUE(mask.MoveUp(3));   // Prefix above AutoNumber
        ASSERT_TRUE(mask.MoveUp(2));   // Prefix above UserPrefix
        ASSERT_TRUE(mask.MoveDown(2)); // UserPrefix below AutoNumber
        for (int i = 0; i < 3; ++i)
            mask.SetUsed(i, true);
        EXPECT_EQ(mask.Text(), QStringLiteral("Date_Prefix_AutoNumber"));
        EXPECT_FALSE(mask.MoveUp(0));
        editor->ANPrefix = QStringLiteral("KO");
        editor->ANTemplate = QStringLiteral("0000");
        editor->ANMinimal = 7;
        EXPECT_EQ(editor->Example(), QStringLiteral("240315-KO-0007"));
        ASSERT_TRUE(editor->Write().ok());
    }
    const auto reopened = Open(Stored(id));
    EXPECT_EQ(reopened->Object()->Field(QStringLiteral("ANMask")).toString(),
              QStringLiteral("Date_Prefix_AutoNumber"));
    QStringList order;
    for (const AutoNumberMask::Part& p : reopened->Mask().Parts())
        order << p.Name + (p.Used ? "+" : "-");
    EXPECT_EQ(order, QStringList({"Date+", "Prefix+", "AutoNumber+", "UserPrefix-"}));
}

TEST_P(GroupEditorTest, ChoosingO1000100WithoutATemplateCannotBeSaved) {
    const auto editor = Open(NewGroup(false));
    editor->Name = QStringLiteral("Sutartys");
    editor->FormOID = QStringLiteral("O1000100");
    const ResultRecord r = editor->Write();
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(Texts(MessageKind::Warning), QStringList{QStringLiteral("Nenurodyti šablonai !")});
    EXPECT_TRUE(editor->IsNew());
    EXPECT_EQ(editor->Name, QStringLiteral("Sutartys"));
    EXPECT_EQ(session_->Db()
                  .Query(QStringLiteral("SELECT COUNT(*) FROM BROperGroups"))
                  .Scalar()
                  .toInt32(),
              0);

    // With a template type's template it is stored.
    editor->Parameters = QStringLiteral("1#5|SALE_INVOICE");
    EXPECT_TRUE(editor->Write().ok());
    EXPECT_FALSE(editor->IsNew());
}

TEST_P(GroupEditorTest, SavingAGroupDeletedMeanwhileSaysGrupePanaikintaAndWritesNothing) {
    const qint64 id = AddGroup(QStringLiteral("Nuoma"));
    const auto editor = Open(Stored(id));
    // Another desk deletes the group while the window stays open.
    ASSERT_TRUE(navigator_->DeleteOrvoObject(GroupOID(id)));
    Texts(MessageKind::Error);
    editor->Name = QStringLiteral("Nuoma ir komunaliniai");
    EXPECT_FALSE(editor->Write().ok());
    EXPECT_EQ(Texts(MessageKind::Error), QStringList{QStringLiteral("Grupė panaikinta!")});
    EXPECT_EQ(session_->Db()
                  .Query(QStringLiteral("SELECT COUNT(*) FROM BROperGroups WHERE ID = ?"),
                         {Value(double(id))})
                  .Scalar()
                  .toInt32(),
              0);
}

TEST_P(GroupEditorTest, SaveThenReopenShowsTheStoredValues) {
    const qint64 id = AddGroup(QStringLiteral("Bankas"));
    {
        const auto editor = Open(Stored(id));
        editor->Name = QStringLiteral("Bankas EUR");
        editor->FormOID = QStringLiteral("O0201501");
        editor->SerijaIndication = true;
        editor->Serija = QStringLiteral("MN");
        editor->AccountCode = QStringLiteral("BANKAS");
        editor->Parameters = QStringLiteral("a#b#c");
        editor->NumByAcc = true;
        editor->ANDateFrom = QDate(2024, 2, 1);
        editor->ANMinimal = 5;
        editor->ANPrefix = QStringLiteral("MN");
        editor->ANTemplate = QStringLiteral("000");
        editor->ANGroupBy = 3;
        editor->ANCycle = 1;
        ASSERT_TRUE(editor->Write().ok());
        EXPECT_FALSE(editor->Changed());
    }
    const auto r = Open(Stored(id));
    EXPECT_EQ(r->Name, QStringLiteral("Bankas EUR"));
    EXPECT_EQ(r->FormOID, QStringLiteral("O0201501"));
    EXPECT_TRUE(r->SerijaIndication);
    EXPECT_EQ(r->Serija, QStringLiteral("MN"));
    EXPECT_EQ(r->AccountCode, QStringLiteral("BANKAS"));
    // The flag is field 5 of the "#"-joined parameters, as a number.
    EXPECT_EQ(r->Parameters, QStringLiteral("a#b#c###1"));
    EXPECT_TRUE(r->NumByAcc);
    EXPECT_EQ(r->ANDateFrom, QDate(2024, 2, 1));
    EXPECT_EQ(r->ANMinimal, 5);
    EXPECT_EQ(r->ANPrefix, QStringLiteral("MN"));
    EXPECT_EQ(r->ANTemplate, QStringLiteral("000"));
    EXPECT_EQ(AutoNumberMask::GroupByTexts().value(r->ANGroupBy),
              QStringLiteral("Pagal grupę ir vartotoją"));
    EXPECT_EQ(AutoNumberMask::CycleTexts().value(r->ANCycle), QStringLiteral("Mėnuo"));

    r->NumByAcc = false;
    ASSERT_TRUE(r->Write().ok());
    EXPECT_EQ(Open(Stored(id))->Parameters, QStringLiteral("a#b#c###0"));
}

TEST_P(GroupEditorTest, AGeneralGroupWritesOnlyItsName) {
    const auto editor = Open(NewGroup(true));
    editor->Name = QStringLiteral("Visos");
    editor->Serija = QStringLiteral("X");
    ASSERT_TRUE(editor->Write().ok());
    const auto r = Open(editor->Object());
    EXPECT_TRUE(r->IsGeneral());
    EXPECT_EQ(r->Name, QStringLiteral("Visos"));
    EXPECT_TRUE(r->Serija.isEmpty());
}

TEST_P(GroupEditorTest, AFailedSaveSaysWhyAndThatNothingWasWritten) {
    const auto editor = Open(NewGroup(false));
    editor->Name = QStringLiteral("   ");
    EXPECT_FALSE(editor->Write().ok());
    const QStringList errors = Texts(MessageKind::Error);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().endsWith(QStringLiteral("\nĮrašymas neatliktas !")))
        << errors.first().toStdString();
    EXPECT_TRUE(errors.first().startsWith(QStringLiteral("Nenurodytas grupės pavadinimas!")));
}

TEST_P(GroupEditorTest, ClearingComputedDebtsPassesAnEmptyDateTextToTheSameMethodThatComputesThem) {
    const qint64 id = AddGroup(QStringLiteral("Pardavimai"));
    const OrvoObjectUIOPtr object = Stored(id);
    auto recorder = std::make_shared<RecordingBO>(session_->BO());
    std::static_pointer_cast<UIO0201400>(object)->Core().SetBO(recorder);
    const auto editor = Open(object);

    session_->Messages()->QueueAnswer(true);
    EXPECT_TRUE(editor->CreateFullSum(QDate(2024, 3, 1)));
    session_->Messages()->QueueAnswer(true);
    EXPECT_TRUE(editor->ClearFullSum());

    QList<QPair<QString, QString>> debtCalls;
    for (const auto& c : recorder->calls)
        if (c.first.contains(QStringLiteral("FullSum")))
            debtCalls << c;
    ASSERT_EQ(debtCalls.size(), 2);
    EXPECT_EQ(debtCalls.at(0).first, QStringLiteral("DO0201400_CreateFullSum"));
    EXPECT_EQ(debtCalls.at(0).second, QStringLiteral("%1,'2024.03.01'").arg(id));
    EXPECT_EQ(debtCalls.at(1).first, QStringLiteral("DO0201400_CreateFullSum"));
    EXPECT_EQ(debtCalls.at(1).second, QStringLiteral("%1,''").arg(id));

    const QList<host::RecordedMessage> shown = session_->Messages()->Take();
    QStringList texts;
    for (const auto& m : shown)
        texts << m.Text;
    EXPECT_EQ(texts,
              QStringList({QStringLiteral("Ar tikrai norite apskaičiuoti skolas?"),
                           QStringLiteral("Atlikta!"),
                           QStringLiteral("Ar tikrai norite panaikinti apskaičiuotas skolas?"),
                           QStringLiteral("Atlikta!")}));
}

TEST_P(GroupEditorTest, ComputingDebtsAnsweredNoCallsNothing) {
    const qint64 id = AddGroup(QStringLiteral("Pardavimai"));
    const OrvoObjectUIOPtr object = Stored(id);
    auto recorder = std::make_shared<RecordingBO>(session_->BO());
    std::static_pointer_cast<UIO0201400>(object)->Core().SetBO(recorder);
    const auto editor = Open(object);
    recorder->calls.clear();
    session_->Messages()->QueueAnswer(false);
    EXPECT_FALSE(editor->CreateFullSum(QDate(2024, 3, 1)));
    EXPECT_TRUE(recorder->calls.isEmpty());
    EXPECT_TRUE(Texts(MessageKind::Information).isEmpty());
    EXPECT_EQ(DebtRows(id), 0);
}

TEST_P(GroupEditorTest, ParametersOfAFormTypeWhoseWindowIsMissingAreRefusedClearly) {
    const auto editor = Open(NewGroup(false));
    editor->FormOID = QStringLiteral("O0201504");
    EXPECT_FALSE(editor->EditParameters());
    EXPECT_EQ(Texts(MessageKind::Error),
              QStringList{UI0201400::NoWindowText(QStringLiteral("frmCashPaymentParameters"))});
    editor->FormOID = QStringLiteral("O0201500");
    EXPECT_FALSE(editor->EditParameters());
    EXPECT_TRUE(session_->Messages()->Take().isEmpty());
}

TEST_P(GroupEditorTest, AParameterWindowWritesTheGroupsParametersIntoTheEditor) {
    session_->Forms()->Register(QStringLiteral("frmTransferParameters"),
                                [] { return std::make_shared<ParametersWriter>(); });
    const auto editor = Open(NewGroup(false));
    editor->FormOID = QStringLiteral("O0201502");
    editor->NumByAcc = true;
    EXPECT_TRUE(editor->EditParameters());
    EXPECT_EQ(ParametersWriter::seen, QStringLiteral("#####1"));
    EXPECT_EQ(editor->Parameters, QStringLiteral("x#y#z#1#2#0"));
    EXPECT_FALSE(editor->NumByAcc);
    EXPECT_TRUE(editor->Changed());
}

TEST_P(GroupEditorTest, ClosingAChangedGroupAsksFirst) {
    const auto editor = Open(NewGroup(false));
    EXPECT_TRUE(editor->CanClose());
    EXPECT_TRUE(session_->Messages()->Take().isEmpty());
    editor->MarkChanged();
    session_->Messages()->QueueAnswer(false);
    EXPECT_FALSE(editor->CanClose());
    session_->Messages()->QueueAnswer(true);
    EXPECT_TRUE(editor->CanClose());
    const QStringList asked = Texts(MessageKind::Question);
    EXPECT_EQ(asked, QStringList({QStringLiteral("Uždaryti be išsaugojimo?"),
                                  QStringLiteral("Uždaryti be išsaugojimo?")}));
}

TEST_P(GroupEditorTest, TheTemplateChoicesArePickedAndCleared) {
    const qint64 id = AddGroup(QStringLiteral("Kasa"));
    const auto editor = Open(Stored(id));
    session_->Choices()->QueuePick(QStringLiteral("O020160012_Pardavimai"));
    EXPECT_TRUE(editor->PickTemplateGroup());
    EXPECT_EQ(editor->BRTemplateID, 12);
    EXPECT_EQ(editor->TemplateGroupText, QStringLiteral("Pardavimai"));
    session_->Choices()->QueuePick(QStringLiteral("O020160014_Prekių pardavimas"));
    EXPECT_TRUE(editor->PickMainTemplate());
    EXPECT_EQ(editor->DefaultTemplateID, 14);
    EXPECT_EQ(session_->Choices()->TakeAsked(),
              QStringList({QStringLiteral("group O0201600: Pažymėkite norimą grupę"),
                           QStringLiteral("pick O0201600: Pasirinkite šabloną...")}));
    // A cancelled pick changes nothing.
    EXPECT_FALSE(editor->PickTemplateGroup());
    EXPECT_EQ(editor->BRTemplateID, 12);
    ASSERT_TRUE(editor->Write().ok());
    EXPECT_EQ(Open(Stored(id))->BRTemplateID, 12);
    editor->ClearTemplate();
    editor->ClearMainTemplate();
    EXPECT_TRUE(editor->Changed());
    ASSERT_TRUE(editor->Write().ok());
    const auto r = Open(Stored(id));
    EXPECT_EQ(r->BRTemplateID, 0);
    EXPECT_EQ(r->DefaultTemplateID, 0);
}

ORVO_STORAGE_BACKENDS(GroupEditorTest);

} // namespace
} // namespace orvo::accounts_testing
