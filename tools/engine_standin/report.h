#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// A document of the stand-in, in the one shape that all its writers share:
// the XML report, the HTML made from it, the Word and Excel files, the
// model file and the notes of an apply. Nothing in it is a statistic: it
// says what the configuration asks for.

// One part of a document: a heading, some sentences, and a table whose rows
// hold one text per key. In XML the keys are the attribute names of the rows.
struct ReportSection
{
    QString name;  // a short identifier, an XML name
    QString title; // the heading shown to a reader
    QStringList paragraphs;
    QStringList keys;
    QVector<QStringList> rows; // each as long as `keys`
};

struct Report
{
    QString title;
    QString note; // says plainly what made the document and what it is not
    QVector<ReportSection> sections;

    // The section of that name, or null.
    const ReportSection *section(const QString &name) const;
};

// An empty section with its heading and the keys of its rows.
ReportSection tableSection(const QString &name, const QString &title, const QStringList &keys);
// A section of two columns, "item" and "value", filled by addItem.
ReportSection itemSection(const QString &name, const QString &title);
void addItem(ReportSection &section, const QString &item, const QString &value);
