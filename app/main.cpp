// orvo-apskaita: the desktop application. Until the desktop exists it reports what it
// would open and exits.
#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTextStream(stdout) << "Orvo Apskaita\n";
    return 0;
}
