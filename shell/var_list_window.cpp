#include "shell/var_list_window.h"

#include "shell/gui_reporter.h"
#include "shell/settings.h"

#include "xml/file_read.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

QPushButton *makeButton(QWidget *parent, const char *name, const QString &text)
{
    auto *button = new QPushButton(text, parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

QCheckBox *makeCheckBox(QWidget *parent, const char *name, const QString &text)
{
    auto *box = new QCheckBox(text, parent);
    box->setObjectName(QLatin1String(name));
    box->setChecked(true);
    return box;
}

QLabel *makeLabel(QWidget *parent, const char *name, const QString &text)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    return label;
}

// Text of a list file: with the mark 0xEF ? 0xBF in front, the rest is
// UTF-8 (the middle byte is not looked at); otherwise the local encoding.
QString decodeListFile(const QByteArray &bytes)
{
    if (bytes.size() >= 3 && static_cast<uchar>(bytes.at(0)) == 0xEF
        && static_cast<uchar>(bytes.at(2)) == 0xBF)
        return QString::fromUtf8(bytes.constData() + 3, bytes.size() - 3);
    return QString::fromLocal8Bit(bytes);
}

bool isDigitOrDot(QChar c)
{
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('.');
}

} // namespace

VarListWindow::VarListWindow(QWidget *parent, bool showFullName) : QDialog(parent)
{
    buildForm(showFullName);
    QMetaObject::connectSlotsByName(this);
}

void VarListWindow::buildForm(bool showFullName)
{
    setObjectName(QStringLiteral("VarListWindow"));
    setWindowTitle(tr("List of variables"));
    leFilename = new QLineEdit(this);
    leFilename->setObjectName(QStringLiteral("leFilename"));
    pteVarList = new QPlainTextEdit(this);
    pteVarList->setObjectName(QStringLiteral("pteVarList"));
    pbBrowse = makeButton(this, "pbBrowse", tr("Browse"));
    pbTrim = makeButton(this, "pbTrim", tr("Special Trim"));
    pbOk = makeButton(this, "pbOk", tr("Ok"));
    pbCancel = makeButton(this, "pbCancel", tr("Cancel"));
    cbColumnName = makeCheckBox(this, "cbColumnName", tr("match column name"));
    cbAlias = makeCheckBox(this, "cbAlias", tr("match alias"));
    cbFullName = makeCheckBox(this, "cbFullName", tr("match full variable name"));
    cbFullName->setVisible(showFullName);

    auto *grid = new QGridLayout(this);
    grid->addWidget(makeLabel(this, "label",
                              tr("Filename that contains the variables to select "
                                 "(One Variable per line):")),
                    0, 0, 1, 2);
    grid->addWidget(leFilename, 1, 0);
    grid->addWidget(pbBrowse, 1, 1);
    grid->addWidget(makeLabel(this, "label_2",
                              tr("..or enter the variables manually below "
                                 "(one variable per line)")),
                    2, 0, 1, 2);
    grid->addWidget(pteVarList, 3, 0, 1, 2);
    auto *boxes = new QHBoxLayout;
    boxes->addWidget(cbColumnName);
    boxes->addWidget(cbAlias);
    boxes->addWidget(cbFullName);
    boxes->addStretch();
    grid->addLayout(boxes, 4, 0, 1, 2);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(pbTrim);
    buttons->addStretch();
    buttons->addWidget(pbOk);
    buttons->addWidget(pbCancel);
    grid->addLayout(buttons, 5, 0, 1, 2);
    resize(480, 420);
}

void VarListWindow::on_pbOk_clicked()
{
    listText = pteVarList->toPlainText();
    fileNameText = leFilename->text();
    lookUpByFullName = cbColumnName->isChecked();
    lookUpByLabel = cbAlias->isChecked();
    matchFullName = cbFullName->isChecked();

    const QStringList parts = listText.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lookUpNames.clear();
    lookUpNames.reserve(qMax(1, parts.size()));
    for (int i = parts.size() - 1; i >= 0; --i)
        lookUpNames.insert(parts.at(i).trimmed(), true);
    accept();
}

void VarListWindow::on_pbCancel_clicked()
{
    cbColumnName->setChecked(lookUpByFullName);
    cbAlias->setChecked(lookUpByLabel);
    cbFullName->setChecked(matchFullName);
    pteVarList->setPlainText(listText);
    leFilename->setText(fileNameText);
    reject();
}

void VarListWindow::on_pbBrowse_clicked()
{
    const QString start = leFilename->text().isEmpty() ? lastDir() : leFilename->text();
    const QString name = askOpenFileName(this, tr("Choose file"), start,
                                         tr("Variable list file (*.txt);;All (*.*)"));
    if (name.isEmpty())
        return;
    leFilename->setText(name);
    loadVariableFile();
}

void VarListWindow::on_leFilename_returnPressed()
{
    loadVariableFile();
}

// An unreadable list is left in silence, a folder, a FIFO, a device or a
// file of more than 128 MiB among them: none of them holds the window.
void VarListWindow::loadVariableFile()
{
    QByteArray bytes;
    if (!readWholeFile(leFilename->text(), &bytes, nullptr))
        return;
    const QString text = decodeListFile(bytes).trimmed();
    if (!text.isEmpty())
        pteVarList->setPlainText(text);
}

// The list comes out reversed, each name but the last followed by a blank
// paragraph: the accepted list drops empty lines and is a set, so neither
// matters.
void VarListWindow::on_pbTrim_clicked()
{
    const QStringList lines = pteVarList->toPlainText().split(QLatin1Char('\n'),
                                                              Qt::SkipEmptyParts);
    pteVarList->clear();
    for (int i = lines.size() - 1; i >= 0; --i) {
        const QString name = specialTrim(lines.at(i));
        if (name.isEmpty())
            continue;
        pteVarList->appendPlainText(name);
        if (i != 0)
            pteVarList->appendPlainText(QStringLiteral("\n"));
    }
}

QString specialTrim(const QString &line)
{
    const int length = line.length();
    if (length == 0)
        return QString();

    // A leading position number such as "12) " or "12, ".
    QChar c = line.at(0);
    int k = 1;
    if (c >= QLatin1Char('0')) {
        while (c <= QLatin1Char('9') && k < length) {
            c = line.at(k);
            ++k;
            if (c < QLatin1Char('0'))
                break;
        }
    }
    const bool numbered = k != length && (c == QLatin1Char(')') || c == QLatin1Char(','));
    const int start = numbered ? k + 1 : 0;

    // A trailing value: the scan stops on the first other character from
    // the end, which is left out with the value.
    int e = length - 1;
    QChar looked = line.at(e);
    while (isDigitOrDot(looked)) {
        if (e < 1)
            break;
        looked = line.at(e);
        --e;
    }
    const int end = e + 1;

    if (end <= start)
        return QString();
    return line.mid(start, end - start).trimmed();
}
