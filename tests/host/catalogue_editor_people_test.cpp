// The editors of natural persons, employees and banks on both backends: each is stored
// and read back; a person or employee needs a first and last name and a personal code
// of its own; a bank needs a name and a code of its own; a person that entries name as
// an addressee cannot be deleted.
#include "catalogue_editor_fixture.h"

namespace orvo::host::testing {
namespace {

using PeopleEditorTest = CatalogueEditorTest;

TEST_P(PeopleEditorTest, PersonIsStoredAndReadBack) {
    auto editor = EditorOf(kinds::Person);
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->WindowTitle(), QStringLiteral("Fizinis asmuo – naujas įrašas"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Jonas"));
    editor->SetText(QStringLiteral("LastName"), QStringLiteral("Žemaitis"));
    editor->SetText(QStringLiteral("PersCode"), QStringLiteral("38001010000"));
    ASSERT_TRUE(editor->Save().ok());
    auto again = EditorOf(editor->Object()->OIDR());
    EXPECT_EQ(again->Text(QStringLiteral("LastName")), QStringLiteral("Žemaitis"));
    EXPECT_EQ(again->Text(QStringLiteral("PersCode")), QStringLiteral("38001010000"));
    EXPECT_EQ(again->WindowTitle(), QStringLiteral("Fizinis asmuo: Jonas Žemaitis"));
}

TEST_P(PeopleEditorTest, PersonWithoutLastNameIsRefused) {
    auto editor = EditorOf(kinds::Person);
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Jonas"));
    EXPECT_EQ(editor->Save().Code, 777);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral("warning: Įveskite asmens vardą ir pavardę.")});
}

TEST_P(PeopleEditorTest, PersonalCodeOfAnotherPersonIsRefused) {
    for (const QString& name : {QStringLiteral("Petras"), QStringLiteral("Povilas")}) {
        auto editor = EditorOf(kinds::Person);
        editor->SetText(QStringLiteral("Name"), name);
        editor->SetText(QStringLiteral("LastName"), QStringLiteral("Kairys"));
        editor->SetText(QStringLiteral("PersCode"), QStringLiteral("38502020000"));
        editor->Save();
    }
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral(
                              "error: Asmuo asmens kodu 38502020000 jau yra: Petras Kairys.\n"
                              "Įrašymas neatliktas !")});
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Persons")), 1);
}

TEST_P(PeopleEditorTest, EmployeeIsStoredWithTitleAndRefusesARepeatedPersonalCode) {
    auto editor = EditorOf(kinds::Employee);
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Rūta"));
    editor->SetText(QStringLiteral("LastName"), QStringLiteral("Petrauskienė"));
    editor->SetText(QStringLiteral("UsrTitle"), QStringLiteral("Vyr. buhalterė"));
    editor->SetText(QStringLiteral("UsrPersCode"), QStringLiteral("48001010000"));
    ASSERT_TRUE(editor->Save().ok());
    EXPECT_EQ(EditorOf(editor->Object()->OIDR())->Text(QStringLiteral("UsrTitle")),
              QStringLiteral("Vyr. buhalterė"));
    auto twin = EditorOf(kinds::Employee);
    twin->SetText(QStringLiteral("Name"), QStringLiteral("Kita"));
    twin->SetText(QStringLiteral("LastName"), QStringLiteral("Darbuotoja"));
    twin->SetText(QStringLiteral("UsrPersCode"), QStringLiteral("48001010000"));
    EXPECT_EQ(twin->Save().Code, 777);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral("error: Darbuotojas asmens kodu 48001010000 jau yra: Rūta "
                                         "Petrauskienė.\nĮrašymas neatliktas !")});
}

TEST_P(PeopleEditorTest, BankNeedsANameAndACodeOfItsOwn) {
    auto nameless = EditorOf(kinds::Bank);
    nameless->SetText(QStringLiteral("Code"), QStringLiteral("73000"));
    EXPECT_EQ(nameless->Save().Code, 777);
    auto first = EditorOf(kinds::Bank);
    first->SetText(QStringLiteral("Name"), QStringLiteral("AB „Swedbank“"));
    first->SetText(QStringLiteral("Code"), QStringLiteral("73000"));
    first->SetText(QStringLiteral("SWIFT"), QStringLiteral("HABALT22"));
    ASSERT_TRUE(first->Save().ok());
    auto second = EditorOf(kinds::Bank);
    second->SetText(QStringLiteral("Name"), QStringLiteral("Kitas bankas"));
    second->SetText(QStringLiteral("Code"), QStringLiteral("73000"));
    EXPECT_EQ(second->Save().Code, 777);
    EXPECT_EQ(BoxTexts(), (QStringList{QStringLiteral("warning: Įveskite banko pavadinimą."),
                                       QStringLiteral("error: Bankas kodu 73000 jau yra: AB "
                                                      "„Swedbank“.\nĮrašymas neatliktas !")}));
    EXPECT_EQ(EditorOf(first->Object()->OIDR())->Text(QStringLiteral("SWIFT")),
              QStringLiteral("HABALT22"));
}

TEST_P(PeopleEditorTest, PersonThatEntriesNameCannotBeDeleted) {
    auto editor = EditorOf(kinds::Person);
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Ona"));
    editor->SetText(QStringLiteral("LastName"), QStringLiteral("Skolininkė"));
    ASSERT_TRUE(editor->Save().ok());
    const QString oidr = editor->Object()->OIDR();
    Invoice(oidr, 10.0, QDate(2024, 5, 1), QStringLiteral("S-9"));
    Invoice(oidr, 20.0, QDate(2024, 5, 2), QStringLiteral("S-10"));
    EXPECT_EQ(editor->Delete().Code, 777);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral("error: Fizinio asmens panaikinti negalima: jis nurodytas "
                                         "finansinių operacijų įrašuose (2).")});
    EXPECT_TRUE(Object(oidr));
}

ORVO_STORAGE_BACKENDS(PeopleEditorTest);

} // namespace
} // namespace orvo::host::testing
