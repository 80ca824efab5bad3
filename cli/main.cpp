// orvo: the command-line face of the system.
#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTextStream(stdout) << "orvo\n";
    return 0;
}
