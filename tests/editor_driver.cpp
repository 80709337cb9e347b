// A second editor for the window broker's tests: the real window with the
// real client, the user's answers given on the command line.
//   editor_driver yes|no OLD CONTESTED
// It opens OLD and then CONTESTED the way the File menu does, asking other
// windows first, and prints each box it is shown as one line
// "question: <title>|<text>" (line breaks as "\n"). A window still open
// after that prints "record: <its configuration>" and ends with 10; a
// window that handed the file over ends the program by itself.
#include "shell/cfg_document.h"
#include "shell/gui_reporter.h"
#include "shell/main_window.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstring>

namespace {

void printLine(const QString &line)
{
    QString escaped = line;
    escaped.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    std::printf("%s\n", qUtf8Printable(escaped));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4)
        return 2;
    const bool yes = std::strcmp(argv[1], "yes") == 0;
    const QString old = QString::fromLocal8Bit(argv[2]);
    const QString contested = QString::fromLocal8Bit(argv[3]);
    // The window opens a file of the program's command line without asking
    // anybody; it must see none here.
    int appArgc = 1;
    QApplication app(appArgc, argv);
    setQuestionHook([yes](const UserQuestion &q) {
        printLine(QStringLiteral("question: ") + q.title + QLatin1Char('|') + q.text);
        return yes ? QMessageBox::Yes : QMessageBox::No;
    });
    QuvaCfgXMLEditor window;
    window.show();
    QObject::connect(&app, &QApplication::lastWindowClosed, &app, &QApplication::quit);
    QTimer::singleShot(0, &window, [&] {
        window.openConfigFile(old, true);
        window.openConfigFile(contested, true);
        if (!window.isVisible())
            return;
        printLine(QStringLiteral("record: ") + window.document().fileName());
        QCoreApplication::exit(10);
    });
    return QApplication::exec();
}
