#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QPushButton;

// The hint picture for the message of a failed check: the first of the
// known kinds of mistake found in it, by a case-sensitive search, or an
// empty text when none is.
QString hintPictureOf(const QString &message);

// Tells the analyst that an expression failed, with the engine's message and
// a picture that hints at the kind of mistake.
class Interface_MathParserCheck : public QDialog
{
    Q_OBJECT

public:
    explicit Interface_MathParserCheck(const QString &message, QWidget *parent = nullptr);

    // The resource of the hint picture shown, empty when there is none.
    QString hintPicture() const { return hint; }

private slots:
    void on_pbOk_clicked();

private:
    QString hint;
};
