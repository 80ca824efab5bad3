// The windows of firms, persons and banks, offscreen on a stored book of each backend:
// what is typed is stored by "Įrašyti" and the title follows; an empty name leaves the
// window open with its text and a warning; a firm that entries name stays when
// "Panaikinti" is refused; "Atšaukti" shows the stored values again; frmMyFirm opens the
// firm that keeps the books.
#include "catalogue_forms_fixture.h"

namespace orvo::ui::testing {
namespace {

using FirmFormsTest = CatalogueFormsTest;

TEST_P(FirmFormsTest, FirmTypedInTheWindowIsStoredAndTheTitleFollows) {
    ASSERT_TRUE(Open(host::kinds::Firm, host::kinds::Firm, QStringLiteral("Nauja įmonė")));
    EXPECT_EQ(Title(), QStringLiteral("Įmonė – naujas įrašas"));
    EXPECT_FALSE(Read(QStringLiteral("cmdDelete")).Enabled);
    Type({{QStringLiteral("txtName"), QStringLiteral("UAB „Ąžuolas“")},
          {QStringLiteral("txtCode"), QStringLiteral("302123456")},
          {QStringLiteral("txtCity"), QStringLiteral("Panevėžys")}});
    ASSERT_TRUE(Driver().SetChecked(QStringLiteral("chkMyFirmFlag"), true).ok());
    Click(QStringLiteral("cmdWrite"));
    EXPECT_TRUE(BoxTexts().isEmpty());
    EXPECT_EQ(Title(), QStringLiteral("Mano įmonė: UAB „Ąžuolas“"));
    EXPECT_TRUE(Read(QStringLiteral("cmdDelete")).Enabled);
    const QueryResult q =
        session_->Db().Query(QStringLiteral("SELECT Name, Code, City, MyFirmFlag FROM Firms"));
    ASSERT_EQ(q.RowCount(), 1);
    EXPECT_EQ(q.At(0, 0).toString(), QStringLiteral("UAB „Ąžuolas“"));
    EXPECT_EQ(q.At(0, 1).toString(), QStringLiteral("302123456"));
    EXPECT_EQ(q.At(0, 2).toString(), QStringLiteral("Panevėžys"));
    EXPECT_NE(q.At(0, 3).toInt32(), 0);
}

TEST_P(FirmFormsTest, EmptyNameLeavesTheWindowOpenWithItsTextAndAWarning) {
    ASSERT_TRUE(Open(host::kinds::Firm, host::kinds::Firm, QStringLiteral("Nauja įmonė")));
    Type({{QStringLiteral("txtCode"), QStringLiteral("302000000")}});
    Click(QStringLiteral("cmdWrite"));
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("warning: Įveskite įmonės pavadinimą.")});
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Read(QStringLiteral("txtCode")).Text, QStringLiteral("302000000"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Firms")), 0);
}

TEST_P(FirmFormsTest, FirmThatEntriesNameStaysWhenItsDeletionIsRefused) {
    const QString firm = AddFirm(QStringLiteral("UAB Pirkėjas"));
    Invoice(firm, 100.0, QDate(2024, 2, 1), QStringLiteral("S-1"));
    ASSERT_TRUE(Open(host::kinds::Firm, firm, QString()));
    EXPECT_EQ(Read(QStringLiteral("txtName")).Text, QStringLiteral("UAB Pirkėjas"));
    session_->Messages()->QueueAnswer(true);
    Click(QStringLiteral("cmdDelete"));
    EXPECT_EQ(BoxTexts(),
              (QStringList{QStringLiteral("question: Ar tikrai norite panaikinti?"),
                           QStringLiteral("error: Įmonės panaikinti negalima: ji nurodyta "
                                          "finansinių operacijų įrašuose (1).")}));
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_TRUE(Object(firm));
}

TEST_P(FirmFormsTest, DeletedFirmClosesItsWindow) {
    const QString firm = AddFirm(QStringLiteral("UAB Nereikalinga"));
    ASSERT_TRUE(Open(host::kinds::Firm, firm, QStringLiteral("Atidaryti")));
    session_->Messages()->QueueAnswer(true);
    Click(QStringLiteral("cmdDelete"));
    EXPECT_FALSE(Window()->isVisible());
    EXPECT_FALSE(Object(firm));
}

TEST_P(FirmFormsTest, CancelShowsTheStoredValuesAgain) {
    const QString firm = AddFirm(QStringLiteral("UAB Pastovi"));
    ASSERT_TRUE(Open(host::kinds::Firm, firm, QString()));
    Type({{QStringLiteral("txtName"), QStringLiteral("Pakeista")}});
    Click(QStringLiteral("cmdCancel"));
    EXPECT_EQ(Read(QStringLiteral("txtName")).Text, QStringLiteral("UAB Pastovi"));
}

TEST_P(FirmFormsTest, ClosingWithChangesAsksFirst) {
    ASSERT_TRUE(Open(host::kinds::Firm, host::kinds::Firm, QStringLiteral("Nauja įmonė")));
    Type({{QStringLiteral("txtName"), QStringLiteral("Neįrašyta")}});
    Click(QStringLiteral("SSCClose"));
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("question: Uždaryti be išsaugojimo?")});
    EXPECT_TRUE(Window()->isVisible());
    session_->Messages()->QueueAnswer(true);
    Click(QStringLiteral("SSCClose"));
    EXPECT_FALSE(Window()->isVisible());
}

TEST_P(FirmFormsTest, OwnFirmWindowOpensTheMarkedFirm) {
    const QString firm = AddFirm(QStringLiteral("UAB Mūsų įmonė"));
    auto editor = EditorOf(firm);
    editor->SetFlag(QStringLiteral("MyFirmFlag"), true);
    ASSERT_TRUE(editor->Save().ok());
    ASSERT_TRUE(Open(host::kinds::Firm, host::kinds::Firm, QStringLiteral("Mano įmonė")));
    EXPECT_EQ(form_->FormName(), QStringLiteral("frmMyFirm"));
    EXPECT_EQ(Title(), QStringLiteral("Mano įmonė: UAB Mūsų įmonė"));
    EXPECT_EQ(Read(QStringLiteral("txtName")).Text, QStringLiteral("UAB Mūsų įmonė"));
}

TEST_P(FirmFormsTest, OwnFirmWindowOpenedWithoutARecordMakesTheOwnFirm) {
    const OrvoFormPtr form = session_->Forms()->CreateForm(QStringLiteral("frmMyFirm"));
    form_ = std::dynamic_pointer_cast<CatalogueForm>(form);
    ASSERT_TRUE(form_);
    form_->Widget()->show();
    driver_ = std::make_unique<FormDriver>(*form_->Widget());
    EXPECT_EQ(Title(), QStringLiteral("Mano įmonė"));
    EXPECT_EQ(Read(QStringLiteral("chkMyFirmFlag")).Checked, std::optional<bool>(true));
    Type({{QStringLiteral("txtName"), QStringLiteral("UAB Knygos")}});
    Click(QStringLiteral("cmdWrite"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Firms WHERE MyFirmFlag <> 0")), 1);
}

TEST_P(FirmFormsTest, PersonAndBankWindowsStoreWhatIsTyped) {
    ASSERT_TRUE(
        Open(host::kinds::Person, host::kinds::Person, QStringLiteral("Naujas fizinis asmuo")));
    Type({{QStringLiteral("txtName"), QStringLiteral("Jonas")},
          {QStringLiteral("txtLastName"), QStringLiteral("Žemaitis")}});
    Click(QStringLiteral("cmdWrite"));
    EXPECT_EQ(Title(), QStringLiteral("Fizinis asmuo: Jonas Žemaitis"));
    ASSERT_TRUE(Open(host::kinds::Bank, host::kinds::Bank, QStringLiteral("Naujas bankas")));
    Type({{QStringLiteral("txtName"), QStringLiteral("AB SEB bankas")},
          {QStringLiteral("txtCode"), QStringLiteral("70440")},
          {QStringLiteral("txtSWIFT"), QStringLiteral("CBVILT2X")}});
    Click(QStringLiteral("cmdWrite"));
    EXPECT_TRUE(BoxTexts().isEmpty());
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Persons WHERE LastName = 'Žemaitis'")), 1);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Banks WHERE SWIFT = 'CBVILT2X'")), 1);
}

ORVO_STORAGE_BACKENDS(FirmFormsTest);

} // namespace
} // namespace orvo::ui::testing
