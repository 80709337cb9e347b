#pragma once

// What the tests of the line-selection and target pages share: a description
// that names no target (so the target may be chosen), a configuration on it,
// and the ways of driving the columns table and an expression editor.

#include "window_test_support.h"

#include "edit/table_views.h"
#include "edit/text_editors.h"

#include <QAbstractItemView>
#include <QPushButton>
#include <QTableView>

namespace expression_page_support {

// The golden description without its own target.
inline QString writeFreeDescription(WindowTestSupport &support)
{
    QByteArray desc = WindowTestSupport::bytes(QStringLiteral(QUVA_TEST_DATA "/pages/golden.DescXML"));
    desc.replace("    <Target>default_flag</Target>\n", "");
    return support.write(QStringLiteral("free.DescXML"), desc);
}

inline QString writeConfig(WindowTestSupport &support, const QByteArray &body = QByteArray())
{
    return support.write(QStringLiteral("expr.CfgXML"),
                         "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                         "<QUV_Config version='1.0'>\n"
                         " <DescriptionFile>free.DescXML</DescriptionFile>\n"
                         + body + "</QUV_Config>\n");
}

// A segmentation model with the given segment names.
inline QString writeSegmentationModel(WindowTestSupport &support, const QString &name,
                                      const QStringList &segments)
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<MOONWICK_MODEL>\n"
                      " <SEGMENT_NAMES>\n";
    for (const QString &segment : segments)
        text += "  <SEGMENT name=\"" + segment.toUtf8() + "\"/>\n";
    text += " </SEGMENT_NAMES>\n</MOONWICK_MODEL>\n";
    return support.write(name, text);
}

// Selects the rows of the columns table that show these labels.
inline void selectColumns(QTableView *columns, const QStringList &labels)
{
    columns->clearSelection();
    QVector<int> rows;
    const QAbstractItemModel *model = columns->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (labels.contains(model->index(row, 0).data().toString()))
            rows << row;
    }
    selectRows(columns, rows);
}

// Types into an expression editor that has the focus, at its end.
inline void typeInto(KPlainTextEdit *editor, const QString &text)
{
    editor->setFocus(Qt::MouseFocusReason);
    editor->moveCursor(QTextCursor::End);
    QTest::keyClicks(editor, text);
}

// Right click on a row of the input variables, where the delegate hears it.
inline void rightClickRow(QTableView *view, int row)
{
    const QRect rect = view->visualRect(view->model()->index(row, 2));
    QTest::mousePress(view->viewport(), Qt::RightButton, Qt::NoModifier, rect.center());
    QTest::mouseRelease(view->viewport(), Qt::RightButton, Qt::NoModifier, rect.center());
}

} // namespace expression_page_support
