// The editor of users and their rights on both backends: the list of rights holds the
// component's rights in the order of its list, then the operations of every operation
// group under CBROperRights and the group's number, then the host's catalogues; what
// the administrator grants is stored with the user and is what the rights service then
// answers for that user; a header row takes no flag and an on/off right only the first;
// a login must be given and not repeated.
#include "catalogue_editor_fixture.h"

#include "core/recordset.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/security_header.h"
#include "host/catalogues/user_editor.h"

namespace orvo::host::testing {
namespace {

class UserEditorTest : public CatalogueEditorTest {
protected:
    std::unique_ptr<UserEditor> User(const QString& codeOrOidr) {
        std::unique_ptr<CatalogueEditor> editor = EditorOf(codeOrOidr);
        auto* user = dynamic_cast<UserEditor*>(editor.get());
        EXPECT_TRUE(user);
        if (!user)
            return nullptr;
        editor.release();
        return std::unique_ptr<UserEditor>(user);
    }

    qint64 AddGroup(const QString& name) {
        const BOResult blank =
            Call(QStringLiteral("DO0201400_GetOrvoObject"), QStringLiteral("'O0201400'"));
        EXPECT_TRUE(blank.ok()) << blank.Text.toStdString();
        const RecordsetPtr rs = blank.Data.toRecordset();
        rs->MoveFirst();
        rs->SetField(QStringLiteral("Name"), name);
        rs->Update();
        const BOResult saved =
            Call(QStringLiteral("DO0201400_SaveOrvoObject"), QStringLiteral("''"), Value(rs));
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        const RecordsetPtr out = saved.Data.toRecordset();
        out->MoveFirst();
        return static_cast<qint64>(out->Field(QStringLiteral("ID")).toDouble());
    }

    static QStringList Keys(const RecordsetPtr& rights) {
        QStringList keys;
        for (rights->MoveFirst(); !rights->Eof(); rights->MoveNext())
            keys << rights->Field(QStringLiteral("RightKey")).toString();
        return keys;
    }
};

TEST_P(UserEditorTest, RightsListHasTheComponentsRightsThenEachGroupThenTheCatalogues) {
    const qint64 cash = AddGroup(QStringLiteral("Kasa"));
    const qint64 bank = AddGroup(QStringLiteral("Bankas"));
    auto editor = User(kinds::User);
    ASSERT_TRUE(editor);
    QStringList expected;
    for (const ComponentRight& right : SecurityHeader().GetComponentList())
        expected << right.Key;
    // Groups in the order of their names.
    expected << QStringLiteral("CBROperRights%1").arg(bank)
             << QStringLiteral("CBROperRights%1").arg(cash);
    expected << QStringLiteral("CFirms") << QStringLiteral("CPerson")
             << QStringLiteral("CEmployees") << QStringLiteral("CBanks")
             << QStringLiteral("CBankAccounts") << QStringLiteral("CCurrency")
             << QStringLiteral("CUsers");
    const RecordsetPtr rights = editor->Rights();
    ASSERT_TRUE(rights);
    EXPECT_EQ(Keys(rights), expected);
    rights->MoveFirst();
    EXPECT_EQ(rights->Field(QStringLiteral("Title")).toString(),
              QStringLiteral("Buhalterinė apskaita"));
    EXPECT_EQ(rights->Field(QStringLiteral("Kind")).toInt32(), ComponentRight::Header);
    rights->SetFilter(QStringLiteral("RightKey = 'CBROperRights%1'").arg(cash));
    EXPECT_EQ(rights->Field(QStringLiteral("Title")).toString(),
              QStringLiteral("Grupės „Kasa“ operacijos"));
    EXPECT_EQ(rights->Field(QStringLiteral("ParentKey")).toString(),
              QStringLiteral("CBROperRights"));
    // A new user holds nothing.
    for (const QString& key : expected)
        for (const QString& flag : UserEditor::FlagNames())
            EXPECT_FALSE(editor->RightFlag(key, flag)) << key.toStdString();
}

TEST_P(UserEditorTest, GrantedRightsAreStoredWithTheUserAndAnsweredForThatUser) {
    const qint64 cash = AddGroup(QStringLiteral("Kasa"));
    const QString groupKey = QStringLiteral("CBROperRights%1").arg(cash);
    auto editor = User(kinds::User);
    editor->SetText(QStringLiteral("Code"), QStringLiteral("ruta"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Rūta Petrauskienė"));
    editor->SetText(QStringLiteral("UserPref"), QStringLiteral("RP"));
    ASSERT_TRUE(editor->SetRightFlag(groupKey, QStringLiteral("ReadFlag"), true));
    ASSERT_TRUE(editor->SetRightFlag(groupKey, QStringLiteral("EditFlag"), true));
    ASSERT_TRUE(editor->SetRightFlag(QStringLiteral("CFirms"), QStringLiteral("ReadFlag"), true));
    ASSERT_TRUE(
        editor->SetRightFlag(QStringLiteral("CAllAccLock"), QStringLiteral("ReadFlag"), true));
    const ResultRecord r = editor->Save();
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(editor->WindowTitle(), QStringLiteral("Naudotojas: ruta Rūta Petrauskienė"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Rights WHERE UserID = ?"),
                    {Value(double(editor->Object()->OIDR().mid(8).toLongLong()))}),
              3);
    // Read again, the editor shows what is stored.
    EXPECT_TRUE(editor->RightFlag(groupKey, QStringLiteral("EditFlag")));
    EXPECT_FALSE(editor->RightFlag(groupKey, QStringLiteral("DeleteFlag")));

    // The rights service answers them for that user.
    session_.reset();
    SessionResult opened = HostSession::Open(location_, OpenMode::Existing, QStringLiteral("ruta"));
    ASSERT_TRUE(opened.ok()) << opened.Text.toStdString();
    session_ = std::move(opened.Session);
    const RightsRecord group = Catalogue::RightsFor(groupKey);
    EXPECT_TRUE(group.Read);
    EXPECT_TRUE(group.Edit);
    EXPECT_FALSE(group.Delete);
    EXPECT_FALSE(group.Create);
    EXPECT_TRUE(Catalogue::RightsFor(QStringLiteral("CAllAccLock")).Read);
    EXPECT_TRUE(Catalogue::RightsFor(QStringLiteral("CFirms")).Read);
    EXPECT_FALSE(Catalogue::RightsFor(QStringLiteral("CFirms")).Edit);
    EXPECT_FALSE(Catalogue::RightsFor(QStringLiteral("CUsers")).Read);
}

TEST_P(UserEditorTest, RevokedRightIsTakenAwayAndOthersStay) {
    auto editor = User(kinds::User);
    editor->SetText(QStringLiteral("Code"), QStringLiteral("jonas"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Jonas Jonaitis"));
    editor->SetRightFlag(QStringLiteral("CBookLayout"), QStringLiteral("ReadFlag"), true);
    editor->SetRightFlag(QStringLiteral("CBookLayout"), QStringLiteral("EditFlag"), true);
    editor->SetRightFlag(QStringLiteral("CBanks"), QStringLiteral("ReadFlag"), true);
    ASSERT_TRUE(editor->Save().ok());
    auto again = User(editor->Object()->OIDR());
    ASSERT_TRUE(again->RightFlag(QStringLiteral("CBookLayout"), QStringLiteral("EditFlag")));
    again->SetRightFlag(QStringLiteral("CBookLayout"), QStringLiteral("EditFlag"), false);
    EXPECT_TRUE(again->Changed());
    ASSERT_TRUE(again->Save().ok());
    auto third = User(editor->Object()->OIDR());
    EXPECT_TRUE(third->RightFlag(QStringLiteral("CBookLayout"), QStringLiteral("ReadFlag")));
    EXPECT_FALSE(third->RightFlag(QStringLiteral("CBookLayout"), QStringLiteral("EditFlag")));
    EXPECT_TRUE(third->RightFlag(QStringLiteral("CBanks"), QStringLiteral("ReadFlag")));
}

TEST_P(UserEditorTest, HeaderRowTakesNoFlagAndAnOnOffRightOnlyTheFirst) {
    auto editor = User(kinds::User);
    EXPECT_FALSE(
        editor->SetRightFlag(QStringLiteral("DLL|L02020011"), QStringLiteral("ReadFlag"), true));
    EXPECT_FALSE(editor->SetRightFlag(QStringLiteral("CAccountPlanRights"),
                                      QStringLiteral("EditFlag"), true));
    EXPECT_TRUE(editor->SetRightFlag(QStringLiteral("CAccountPlanRights"),
                                     QStringLiteral("ReadFlag"), true));
    EXPECT_FALSE(
        editor->SetRightFlag(QStringLiteral("NoSuchRight"), QStringLiteral("ReadFlag"), true));
    EXPECT_FALSE(editor->RightFlag(QStringLiteral("DLL|L02020011"), QStringLiteral("ReadFlag")));
    EXPECT_FALSE(
        editor->RightFlag(QStringLiteral("CAccountPlanRights"), QStringLiteral("EditFlag")));
}

TEST_P(UserEditorTest, LoginMustBeGivenAndNotRepeated) {
    auto nameless = User(kinds::User);
    nameless->SetText(QStringLiteral("Name"), QStringLiteral("Be prisijungimo"));
    EXPECT_EQ(nameless->Save().Code, 777);
    auto twin = User(kinds::User);
    twin->SetText(QStringLiteral("Code"), QStringLiteral("admin"));
    twin->SetText(QStringLiteral("Name"), QStringLiteral("Antras administratorius"));
    EXPECT_EQ(twin->Save().Code, 777);
    EXPECT_EQ(BoxTexts(),
              (QStringList{QStringLiteral("warning: Įveskite naudotojo prisijungimo vardą."),
                           QStringLiteral("error: Naudotojas prisijungimo vardu admin jau yra: "
                                          "Administratorius.\nĮrašymas neatliktas !")}));
}

TEST_P(UserEditorTest, UserIsTheEmployeeChosenFromTheBooksEmployees) {
    auto employee = EditorOf(kinds::Employee);
    employee->SetText(QStringLiteral("Name"), QStringLiteral("Ona"));
    employee->SetText(QStringLiteral("LastName"), QStringLiteral("Onaitė"));
    employee->SetText(QStringLiteral("UsrTitle"), QStringLiteral("Buhalterė"));
    ASSERT_TRUE(employee->Save().ok());
    const QString id = employee->Object()->OIDR().mid(8);
    auto editor = User(kinds::User);
    const QVector<CatalogueChoice> choices = editor->Choices(QStringLiteral("EmployeeID"));
    ASSERT_EQ(choices.size(), 2);
    EXPECT_EQ(choices.at(1).Value, id);
    EXPECT_EQ(choices.at(1).Text, QStringLiteral("Ona Onaitė"));
    editor->SetText(QStringLiteral("Code"), QStringLiteral("ona"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Ona Onaitė"));
    editor->SetText(QStringLiteral("EmployeeID"), id);
    ASSERT_TRUE(editor->Save().ok());
    EXPECT_EQ(User(editor->Object()->OIDR())->Text(QStringLiteral("EmployeeID")), id);
}

ORVO_STORAGE_BACKENDS(UserEditorTest);

} // namespace
} // namespace orvo::host::testing
