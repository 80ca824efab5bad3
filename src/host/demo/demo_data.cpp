#include "host/demo/demo_data.h"

#include <QString>

namespace orvo::host::demo {

const QVector<DemoFirm>& Firms() {
    static const QVector<DemoFirm> list = {
        {"UAB Orvo demonstracinė", "304512867", "LT100011234512", "Konstitucijos pr. 7A-45",
         "Vilnius", "LT-08501", "+370 5 219 0000", "info@orvo-demo.example", -1,
         "Įmonė, kurios apskaita tvarkoma"},
        {"UAB Žalgirio prekyba", "302845613", "LT100007284519", "Savanorių pr. 255", "Kaunas",
         "LT-50184", "+370 37 401 210", "info@zalgirio-prekyba.example", -1, "Pirkėjas"},
        {"UAB Žalgirio prekyba Vilniaus filialas", "302845624", "LT100007284519", "Ukmergės g. 126",
         "Vilnius", "LT-08100", "+370 5 240 1122", "vilnius@zalgirio-prekyba.example", 1,
         "Pirkėjo filialas"},
        {"UAB Šiaurės vėjas", "303127458", "LT100008127456", "Tilžės g. 60", "Šiauliai", "LT-76290",
         "+370 41 520 330", "info@siaures-vejas.example", -1, "Tiekėjas"},
        {"AB Ąžuolų baldai", "167384291", "LT673842917", "Pramonės g. 12", "Panevėžys", "LT-35112",
         "+370 45 460 781", "pardavimai@azuolu-baldai.example", -1, "Tiekėjas"},
        {"UAB Čiurlionio spaustuvė", "301596382", "LT100003596387", "M. K. Čiurlionio g. 84",
         "Vilnius", "LT-03100", "+370 5 265 4410", "spauda@ciurlionio.example", -1, "Tiekėjas"},
        {"MB Kęstučio kepykla", "305874126", "", "Rotušės a. 3", "Alytus", "LT-62141",
         "+370 315 70 222", "kepykla@kestucio.example", -1, "Pirkėjas"},
        {"UAB Įrankių centras", "304217593", "LT100010217598", "Verkių g. 31", "Vilnius",
         "LT-09109", "+370 5 272 8830", "info@irankiu-centras.example", -1, "Pirkėjas ir tiekėjas"},
        {"UAB Ūkininkų sėkla", "302661478", "LT100006661473", "Kauno g. 118", "Marijampolė",
         "LT-68108", "+370 343 91 540", "info@ukininku-sekla.example", -1, "Pirkėjas"},
        {"UAB Pajūrio logistika", "303915264", "LT100009915269", "Minijos g. 180", "Klaipėda",
         "LT-93269", "+370 46 310 902", "info@pajurio-logistika.example", -1, "Tiekėjas"},
        {"VšĮ Žinių ir įgūdžių centras", "305342817", "LT100013342812", "Aušros g. 9", "Utena",
         "LT-28244", "+370 389 61 117", "info@ziniu-centras.example", -1, "Pirkėjas"},
        {"UAB Rąstų prekyba", "304788156", "LT100012788151", "Ozo g. 25", "Vilnius", "LT-07150",
         "+370 5 279 6655", "info@rastu-prekyba.example", -1, "Tiekėjas"},
    };
    return list;
}

const QVector<DemoPerson>& Persons() {
    static const QVector<DemoPerson> list = {
        {"Jonas", "Kazlauskas", "37804123170", "", "Laisvės al. 41-12", "Kaunas", "LT-44240",
         "+370 612 34 501", "jonas.kazlauskas@pastas.example"},
        {"Ona", "Jankauskienė", "48509234823", "", "Žirmūnų g. 68-30", "Vilnius", "LT-09124",
         "+370 623 45 612", "ona.jankauskiene@pastas.example"},
        {"Petras", "Žukauskas", "36902172569", "", "Taikos pr. 101-7", "Klaipėda", "LT-94200",
         "+370 634 56 723", "petras.zukauskas@pastas.example"},
        {"Gintarė", "Vaitkutė", "49206055938", "", "Vilniaus g. 213-4", "Šiauliai", "LT-76343",
         "+370 645 67 834", "gintare.vaitkute@pastas.example"},
        {"Mindaugas", "Stankevičius", "38811301285", "", "Respublikos g. 52-18", "Panevėžys",
         "LT-35173", "+370 656 78 945", "mindaugas.stankevicius@pastas.example"},
    };
    return list;
}

const QVector<DemoPerson>& Employees() {
    static const QVector<DemoPerson> list = {
        {"Tomas", "Butkus", "37503083747", "Direktorius", "Antakalnio g. 44-9", "Vilnius",
         "LT-10312", "+370 611 20 301", "tomas.butkus@orvo-demo.example"},
        {"Rūta", "Petrauskienė", "48207146414", "Vyriausioji buhalterė", "Šeškinės g. 12-56",
         "Vilnius", "LT-07157", "+370 622 31 402", "ruta.petrauskiene@orvo-demo.example"},
        {"Laura", "Paulauskienė", "49001192057", "Buhalterė", "Kalvarijų g. 150-3", "Vilnius",
         "LT-08221", "+370 633 42 503", "laura.paulauskiene@orvo-demo.example"},
        {"Darius", "Urbonas", "39305215386", "Vadybininkas", "Trakų g. 8-2", "Vilnius", "LT-01132",
         "+370 644 53 604", "darius.urbonas@orvo-demo.example"},
        {"Aistė", "Kavaliauskaitė", "49608267199", "Vadybininkė", "Pilaitės pr. 27-81", "Vilnius",
         "LT-04352", "+370 655 64 705", "aiste.kavaliauskaite@orvo-demo.example"},
    };
    return list;
}

const QVector<DemoBank>& Banks() {
    static const QVector<DemoBank> list = {
        {"AB SEB bankas", "70440", "CBVILT2X", "Konstitucijos pr. 24", "Vilnius", "LT-08105"},
        {"Swedbank, AB", "73000", "HABALT22", "Konstitucijos pr. 20A", "Vilnius", "LT-03502"},
        {"AB Šiaulių bankas", "71800", "CBSBLT26", "Tilžės g. 149", "Šiauliai", "LT-76348"},
        {"Luminor Bank AS Lietuvos skyrius", "40100", "AGBLLT2X", "Konstitucijos pr. 21A",
         "Vilnius", "LT-03601"},
    };
    return list;
}

const QVector<DemoCurrency>& Currencies() {
    static const QVector<DemoCurrency> list = {
        {"EUR", "Euras", "ES", "eurai", "centai", 0, 0},
        {"USD", "JAV doleris", "JAV", "doleriai", "centai", 1.05, 1.12},
        {"GBP", "Svaras sterlingų", "Didžioji Britanija", "svarai sterlingų", "pensai", 0.83, 0.88},
        {"PLN", "Lenkijos zlotas", "Lenkija", "zlotai", "grašiai", 4.25, 4.45},
    };
    return list;
}

const QVector<DemoAccount>& Accounts() {
    using O = DemoOwner;
    static const QVector<DemoAccount> list = {
        // The own firm: the main account in the base currency and a dollar account.
        {O::Firm, 0, 0, "10010045871", "   ", true},
        {O::Firm, 0, 1, "20020087154", "USD", false},
        {O::Firm, 0, 3, "30030012678", "   ", false},
        {O::Firm, 1, 1, "10000312457", "   ", true},
        {O::Firm, 2, 1, "10000312468", "   ", true},
        {O::Firm, 3, 2, "20004587123", "   ", true},
        {O::Firm, 4, 0, "50078412396", "   ", true},
        {O::Firm, 4, 0, "50078412401", "GBP", false},
        {O::Firm, 5, 3, "40012785436", "   ", true},
        {O::Firm, 7, 1, "10000934172", "   ", true},
        {O::Firm, 9, 0, "50003617728", "   ", true},
        {O::Firm, 9, 0, "50003617739", "PLN", false},
        {O::Firm, 11, 2, "20006123984", "   ", true},
        {O::Person, 0, 1, "10001547823", "   ", true},
        {O::Person, 1, 0, "50047812365", "   ", true},
        {O::Person, 3, 2, "20007845126", "   ", true},
        {O::Employee, 0, 0, "50012654781", "   ", true},
        {O::Employee, 1, 0, "50012654792", "   ", true},
        {O::Employee, 2, 1, "10002478156", "   ", true},
        {O::Employee, 3, 3, "40015874236", "   ", true},
        {O::Employee, 4, 1, "10002478167", "   ", true},
    };
    return list;
}

QString LithuanianIban(const QString& bankCode, const QString& accountDigits) {
    // Check digits: the account part, then the country (L = 21, T = 29) and "00", read as
    // one number modulo 97; the check is 98 minus the remainder.
    const QString digits = bankCode + accountDigits + QStringLiteral("212900");
    int remainder = 0;
    for (const QChar c : digits)
        remainder = (remainder * 10 + c.digitValue()) % 97;
    return QStringLiteral("LT%1%2%3")
        .arg(98 - remainder, 2, 10, QLatin1Char('0'))
        .arg(bankCode, accountDigits);
}

} // namespace orvo::host::demo
