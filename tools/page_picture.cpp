// page-picture: draws the editor's window, opened on a configuration and
// turned to one of its pages, into a PNG file. It runs on the offscreen
// platform, so it needs no display; scripts/screenshot uses it for the
// pictures of the README.
//
//   page-picture [--advanced] [--size WIDTHxHEIGHT] [--page OBJECTNAME]
//                [--filter PATTERN] [--click BUTTON] [--run-until PERCENT]
//                CFGFILE OUT.png
//
// --click clicks the push button of that object name on the page first.
// --run-until starts the engine from the run page and draws the window as
// soon as its progress bar has reached PERCENT; the engine is the one of
// the application directory (QUVA_APP_DIR).

#include "shell/main_window.h"
#include "shell/settings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStringList>
#include <QTabWidget>

#include <cstdio>

namespace {

struct Options
{
    bool advanced = false;
    QSize size{1100, 760};
    QString page = QStringLiteral("tQuva");
    QString filter;
    QString click;
    int runUntil = -1;
    QString cfgPath;
    QString outPath;
};

bool parse(const QStringList &args, Options *o)
{
    QStringList rest;
    for (int i = 1; i < args.size(); ++i) {
        const QString &a = args.at(i);
        const bool hasValue = i + 1 < args.size();
        if (a == QLatin1String("--advanced")) {
            o->advanced = true;
        } else if (a == QLatin1String("--size") && hasValue) {
            const QStringList wh = args.at(++i).split(QLatin1Char('x'));
            if (wh.size() != 2)
                return false;
            o->size = QSize(wh.at(0).toInt(), wh.at(1).toInt());
        } else if (a == QLatin1String("--page") && hasValue) {
            o->page = args.at(++i);
        } else if (a == QLatin1String("--filter") && hasValue) {
            o->filter = args.at(++i);
        } else if (a == QLatin1String("--click") && hasValue) {
            o->click = args.at(++i);
        } else if (a == QLatin1String("--run-until") && hasValue) {
            o->runUntil = args.at(++i).toInt();
        } else {
            rest << a;
        }
    }
    if (rest.size() != 2)
        return false;
    o->cfgPath = rest.at(0);
    o->outPath = rest.at(1);
    return true;
}

// The page of that object name in view, toggled into the row first if it
// is one of the optional pages.
bool showPage(QuvaCfgXMLEditor &w, const QString &name)
{
    const PageTable &pages = w.pageTable();
    for (int i = 0; i < pages.count(); ++i) {
        if (pages.widget(i)->objectName() != name)
            continue;
        if (!pages.isShown(i))
            w.togglePage(i, pages.widget(i)->windowTitle());
        pages.show(i);
        w.updatePanelIdx(i);
        return pages.isShown(i);
    }
    return false;
}

// Clicks "Run Quva Modeler" and waits, at most 30 s, for the bar to reach
// `percent`. The picture is taken during the run, before its end box.
bool runUntil(QuvaCfgXMLEditor &w, int percent)
{
    auto *run = w.findChild<QPushButton *>(QStringLiteral("pbRunQuva"));
    auto *bar = w.findChild<QProgressBar *>(QStringLiteral("progressBar"));
    if (!run || !bar)
        return false;
    run->click();
    QElapsedTimer clock;
    clock.start();
    while (bar->value() < percent && clock.elapsed() < 30000)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return bar->value() >= percent;
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList args;
    for (int i = 0; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    // The window reads the application's arguments as a file to open: it
    // gets the program's name alone.
    int windowArgc = 1;
    QApplication app(windowArgc, argv);
    Options o;
    if (!parse(args, &o)) {
        std::fprintf(stderr, "usage: page-picture [--advanced] [--size WIDTHxHEIGHT] "
                             "[--page OBJECTNAME] [--filter PATTERN] [--click BUTTON] "
                             "[--run-until PERCENT] "
                             "CFGFILE OUT.png\n");
        return 2;
    }
    setAdvancedUser(o.advanced);
    QuvaCfgXMLEditor w;
    w.openConfigFile(o.cfgPath, false);
    if (!w.cfg())
        return 1;
    w.resize(o.size);
    w.show();
    if (!showPage(w, o.page)) {
        std::fprintf(stderr, "page-picture: no page %s\n", qUtf8Printable(o.page));
        return 1;
    }
    if (!o.filter.isEmpty()) {
        if (auto *edit = w.findChild<QLineEdit *>(QStringLiteral("leSelector1")))
            edit->setText(o.filter);
    }
    if (!o.click.isEmpty()) {
        auto *button = w.findChild<QPushButton *>(o.click);
        if (!button) {
            std::fprintf(stderr, "page-picture: no button %s\n", qUtf8Printable(o.click));
            return 1;
        }
        button->click();
    }
    if (o.runUntil >= 0 && !runUntil(w, o.runUntil)) {
        std::fprintf(stderr, "page-picture: the run did not reach %d%%\n", o.runUntil);
        return 1;
    }
    QApplication::processEvents();
    return w.grab().save(o.outPath) ? 0 : 1;
}
