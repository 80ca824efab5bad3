// The editor of firms on both backends: a firm is stored and read back through the
// host's object store; an empty name and a repeated code are refused in Lithuanian; a
// copy read before another user's save is refused by the lock; a firm that entries
// still name cannot be deleted; the own firm is the one marked, and only one is.
#include "catalogue_editor_fixture.h"

#include "frame/catalogue_rights_forms.h"
#include "host/catalogues/catalogue_editor_migration.h"
#include "host/storage/migrations.h"

namespace orvo::host::testing {
namespace {

using FirmEditorTest = CatalogueEditorTest;

TEST_P(FirmEditorTest, NewFirmIsStoredWithEveryFieldAndReadBack) {
    auto editor = EditorOf(kinds::Firm);
    ASSERT_TRUE(editor);
    EXPECT_TRUE(editor->IsNew());
    EXPECT_EQ(editor->WindowTitle(), QStringLiteral("Įmonė – naujas įrašas"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("  UAB „Ąžuolas“ "));
    editor->SetText(QStringLiteral("Code"), QStringLiteral("302123456"));
    editor->SetText(QStringLiteral("VATCode"), QStringLiteral("LT100004567812"));
    editor->SetText(QStringLiteral("City"), QStringLiteral("Šiauliai"));
    editor->SetText(QStringLiteral("Comment"), QStringLiteral("Tiekėjas"));
    EXPECT_TRUE(editor->Changed());
    const ResultRecord r = editor->Save();
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_FALSE(editor->Changed());
    const QString oidr = editor->Object()->OIDR();
    ASSERT_GE(oidr.size(), 9);
    EXPECT_TRUE(BoxTexts().isEmpty());

    auto again = EditorOf(oidr);
    ASSERT_TRUE(again);
    EXPECT_FALSE(again->IsNew());
    EXPECT_EQ(again->Text(QStringLiteral("Name")), QStringLiteral("UAB „Ąžuolas“"));
    EXPECT_EQ(again->Text(QStringLiteral("Code")), QStringLiteral("302123456"));
    EXPECT_EQ(again->Text(QStringLiteral("VATCode")), QStringLiteral("LT100004567812"));
    EXPECT_EQ(again->Text(QStringLiteral("City")), QStringLiteral("Šiauliai"));
    EXPECT_EQ(again->Text(QStringLiteral("Comment")), QStringLiteral("Tiekėjas"));
    EXPECT_FALSE(again->Flag(QStringLiteral("MyFirmFlag")));
    EXPECT_EQ(again->WindowTitle(), QStringLiteral("Įmonė: UAB „Ąžuolas“"));
}

TEST_P(FirmEditorTest, BookGetsTheLockColumnOnEveryCatalogueTable) {
    ASSERT_GE(LatestSchemaVersion(), kCatalogueLockMigrationVersion);
    EXPECT_EQ(Migrations().at(kCatalogueLockMigrationVersion - 1).Title,
              CatalogueLockMigration().Title);
    for (const QString& table : CatalogueLockedTables()) {
        const QueryResult q =
            session_->Db().Query(QStringLiteral("SELECT COUNT(LockGUID) FROM %1").arg(table));
        EXPECT_TRUE(q.ok()) << table.toStdString() << ": " << q.Text.toStdString();
    }
    const QString oidr = AddFirm(QStringLiteral("UAB Užraktas"));
    auto editor = EditorOf(oidr);
    ASSERT_TRUE(editor);
    EXPECT_FALSE(editor->Object()->Field(QStringLiteral("LockGUID")).toString().isEmpty());
}

TEST_P(FirmEditorTest, EmptyNameIsRefusedWithAWarningAndNothingIsStored) {
    auto editor = EditorOf(kinds::Firm);
    ASSERT_TRUE(editor);
    editor->SetText(QStringLiteral("Name"), QStringLiteral("   "));
    editor->SetText(QStringLiteral("Code"), QStringLiteral("111"));
    const ResultRecord r = editor->Save();
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("warning: Įveskite įmonės pavadinimą.")});
    EXPECT_TRUE(editor->IsNew());
    // What was typed stays in the window.
    EXPECT_EQ(editor->Text(QStringLiteral("Code")), QStringLiteral("111"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Firms")), 0);
}

TEST_P(FirmEditorTest, StoreRefusesANamelessFirmThatBypassesTheEditor) {
    const BOResult blank =
        Call(QStringLiteral("DO0000100_GetOrvoObject"), QStringLiteral("'O0000100'"));
    ASSERT_TRUE(blank.ok());
    const RecordsetPtr rs = blank.Data.toRecordset();
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Name"), QString());
    rs->Update();
    const BOResult saved =
        Call(QStringLiteral("DO0000100_SaveOrvoObject"), QStringLiteral("''"), Value(rs));
    EXPECT_EQ(saved.Code, 777);
    EXPECT_EQ(saved.Text, QStringLiteral("Įveskite įmonės pavadinimą."));
}

TEST_P(FirmEditorTest, DuplicateCodeIsRefusedAndTheSaveNotDone) {
    AddFirm(QStringLiteral("UAB Pirmas"), QStringLiteral("300000001"));
    BoxTexts();
    auto editor = EditorOf(kinds::Firm);
    ASSERT_TRUE(editor);
    editor->SetText(QStringLiteral("Name"), QStringLiteral("UAB Antras"));
    editor->SetText(QStringLiteral("Code"), QStringLiteral("300000001"));
    const ResultRecord r = editor->Save();
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral("error: Įmonė kodu 300000001 jau yra: UAB Pirmas.\n"
                                         "Įrašymas neatliktas !")});
    EXPECT_TRUE(editor->IsNew());
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Firms")), 1);
    // The same firm keeps its own code when saved again.
    auto first = EditorOf(QStringLiteral("O0000100") +
                          QString::number(Count(QStringLiteral("SELECT MIN(ID) FROM Firms"))));
    ASSERT_TRUE(first);
    first->SetText(QStringLiteral("Phone"), QStringLiteral("+370 600 00000"));
    EXPECT_TRUE(first->Save().ok());
}

TEST_P(FirmEditorTest, CopyReadBeforeAnotherUsersSaveIsRefusedByTheLock) {
    const QString oidr = AddFirm(QStringLiteral("UAB Bendras"));
    auto mine = EditorOf(oidr);
    auto theirs = EditorOf(oidr);
    ASSERT_TRUE(mine && theirs);
    theirs->SetText(QStringLiteral("City"), QStringLiteral("Kaunas"));
    ASSERT_TRUE(theirs->Save().ok());
    mine->SetText(QStringLiteral("City"), QStringLiteral("Vilnius"));
    const ResultRecord r = mine->Save();
    EXPECT_NE(r.Code, 0);
    const QStringList boxes = BoxTexts();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes.first().startsWith(QStringLiteral("error: Įrašo ") + oidr +
                                         QStringLiteral(" įrašyti negalima: jį jau pakeitė kitas "
                                                        "naudotojas.")))
        << boxes.first().toStdString();
    EXPECT_TRUE(boxes.first().endsWith(QStringLiteral("\nĮrašymas neatliktas !")));
    EXPECT_EQ(EditorOf(oidr)->Text(QStringLiteral("City")), QStringLiteral("Kaunas"));
    // Read again, the copy saves.
    ASSERT_TRUE(mine->Undo().ok());
    EXPECT_EQ(mine->Text(QStringLiteral("City")), QStringLiteral("Kaunas"));
    mine->SetText(QStringLiteral("City"), QStringLiteral("Vilnius"));
    EXPECT_TRUE(mine->Save().ok());
    EXPECT_EQ(EditorOf(oidr)->Text(QStringLiteral("City")), QStringLiteral("Vilnius"));
}

TEST_P(FirmEditorTest, DeletingAFirmThatEntriesStillNameIsRefused) {
    const QString oidr = AddFirm(QStringLiteral("UAB Skolininkas"));
    Invoice(oidr, 121.0, QDate(2024, 3, 15), QStringLiteral("S-1"));
    auto editor = EditorOf(oidr);
    ASSERT_TRUE(editor);
    const ResultRecord r = editor->Delete();
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral("error: Įmonės panaikinti negalima: ji nurodyta "
                                         "finansinių operacijų įrašuose (1).")});
    EXPECT_TRUE(Object(oidr)) << "the firm is still there";
}

TEST_P(FirmEditorTest, DeletingAFirmNoEntryNamesRemovesIt) {
    const QString oidr = AddFirm(QStringLiteral("UAB Laikinas"));
    auto editor = EditorOf(oidr);
    ASSERT_TRUE(editor);
    EXPECT_TRUE(editor->Delete().ok());
    EXPECT_TRUE(BoxTexts().isEmpty());
    EXPECT_FALSE(Object(oidr));
}

TEST_P(FirmEditorTest, MarkingAnotherFirmAsOwnMovesTheMark) {
    const QString first = AddFirm(QStringLiteral("UAB Senoji"));
    auto editor = EditorOf(first);
    editor->SetFlag(QStringLiteral("MyFirmFlag"), true);
    ASSERT_TRUE(editor->Save().ok());
    EXPECT_EQ(editor->WindowTitle(), QStringLiteral("Mano įmonė: UAB Senoji"));
    const QString second = AddFirm(QStringLiteral("UAB Naujoji"));
    auto other = EditorOf(second);
    other->SetFlag(QStringLiteral("MyFirmFlag"), true);
    ASSERT_TRUE(other->Save().ok()) << BoxTexts().join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Firms WHERE MyFirmFlag <> 0")), 1);
    EXPECT_FALSE(EditorOf(first)->Flag(QStringLiteral("MyFirmFlag")));

    const OrvoObjectUIOPtr own = CatalogueEditor::OwnFirmObject();
    ASSERT_TRUE(own);
    EXPECT_EQ(own->OIDR(), second);
}

TEST_P(FirmEditorTest, OwnFirmOfABookWithoutOneIsANewFirmMarkedAsOwn) {
    const OrvoObjectUIOPtr own = CatalogueEditor::OwnFirmObject();
    ASSERT_TRUE(own);
    auto editor = CatalogueEditor::For(own);
    ASSERT_TRUE(editor);
    EXPECT_TRUE(editor->IsNew());
    EXPECT_TRUE(editor->Flag(QStringLiteral("MyFirmFlag")));
    EXPECT_EQ(editor->WindowTitle(), QStringLiteral("Mano įmonė"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("UAB Mūsų knygos"));
    ASSERT_TRUE(editor->Save().ok());
    EXPECT_EQ(CatalogueEditor::OwnFirmObject()->OIDR(), editor->Object()->OIDR());
}

TEST_P(FirmEditorTest, UndoReadsTheStoredValuesAgain) {
    const QString oidr = AddFirm(QStringLiteral("UAB Atšaukimas"), QStringLiteral("123"));
    auto editor = EditorOf(oidr);
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Kitas"));
    editor->SetFlag(QStringLiteral("MyFirmFlag"), true);
    ASSERT_TRUE(editor->Undo().ok());
    EXPECT_EQ(editor->Text(QStringLiteral("Name")), QStringLiteral("UAB Atšaukimas"));
    EXPECT_FALSE(editor->Flag(QStringLiteral("MyFirmFlag")));
    EXPECT_FALSE(editor->Changed());
}

TEST_P(FirmEditorTest, UserWithoutTheRightsOfFirmsCanNeitherChangeNorDelete) {
    const QString oidr = AddFirm(QStringLiteral("UAB Saugomas"));
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Users (Code, Name, IsAdmin) VALUES "
                                            "('skaitytojas', 'Skaitytojas', 0)"))
                    .ok());
    session_.reset();
    SessionResult opened =
        HostSession::Open(location_, OpenMode::Existing, QStringLiteral("skaitytojas"));
    ASSERT_TRUE(opened.ok()) << opened.Text.toStdString();
    session_ = std::move(opened.Session);
    auto editor = EditorOf(oidr);
    ASSERT_TRUE(editor);
    EXPECT_FALSE(editor->Rights().Edit);
    editor->SetText(QStringLiteral("City"), QStringLiteral("Alytus"));
    EXPECT_EQ(editor->Save().Code, 777);
    EXPECT_EQ(editor->Delete().Code, 777);
    EXPECT_EQ(BoxTexts(),
              (QStringList{QStringLiteral("warning: Neturite teisės keisti šio žinyno įrašų."),
                           QStringLiteral("warning: Neturite teisės naikinti šio žinyno įrašų.")}));
    EXPECT_TRUE(Object(oidr));
}

ORVO_STORAGE_BACKENDS(FirmEditorTest);

} // namespace
} // namespace orvo::host::testing
