#include "panels/math_parser_check.h"

#include "panels/svg_picture.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace {

struct HintRule
{
    const char *text;
    const char *picture;
};

// The last two never come from the checks of this editor, which expect no
// particular type; they stay for callers that do.
const HintRule hintRules[] = {
    {"Undefined token", ":/VelmorinMathParser/undefinedToken.png"},
    {"There is no implicit conversion to type", ":/VelmorinMathParser/errorCast.png"},
    {"The expression evaluated to a Number and a String was expected",
     ":/VelmorinMathParser/errorEvaluatedToNumber.png"},
    {"The expression evaluated to a String and a Number was expected",
     ":/VelmorinMathParser/errorEvaluatedToString.png"},
};

QLabel *pictureLabel(const char *name, const QString &picture, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    if (!picture.isEmpty())
        label->setPixmap(svgPixmap(picture, parent->devicePixelRatioF()));
    return label;
}

} // namespace

QString hintPictureOf(const QString &message)
{
    for (const HintRule &rule : hintRules) {
        if (message.contains(QLatin1String(rule.text), Qt::CaseSensitive))
            return QLatin1String(rule.picture);
    }
    return QString();
}

Interface_MathParserCheck::Interface_MathParserCheck(const QString &message, QWidget *parent)
    : QDialog(parent), hint(hintPictureOf(message))
{
    setObjectName(QStringLiteral("Interface_MathParserCheck"));
    setWindowTitle(tr("Math Parser Error"));
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    resize(609, 114);

    auto *grid = new QGridLayout(this);
    grid->setObjectName(QStringLiteral("gridLayout"));
    grid->addWidget(pictureLabel("label", QStringLiteral(":/VelmorinMathParser/errorIcon.png"),
                                 this),
                    0, 0, Qt::AlignTop);
    auto *text = new QLabel(message, this);
    text->setObjectName(QStringLiteral("labelErrorMessage"));
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid->addWidget(text, 0, 1);
    grid->addWidget(pictureLabel("labelHint", hint, this), 1, 1);
    auto *ok = new QPushButton(tr("OK"), this);
    ok->setObjectName(QStringLiteral("pbOk"));
    ok->setDefault(true);
    grid->addWidget(ok, 2, 1, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
    QMetaObject::connectSlotsByName(this);
}

void Interface_MathParserCheck::on_pbOk_clicked()
{
    close();
}
