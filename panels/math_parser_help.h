#pragma once

#include <QWidget>

// The whole expression language in a tree, one section per kind of item and
// one row per call form with its comment; shown as the page "Help" beside an
// expression. Nothing in it reacts to clicks.
class Interface_mathParserHelp : public QWidget
{
    Q_OBJECT

public:
    explicit Interface_mathParserHelp(QWidget *parent = nullptr);
};
