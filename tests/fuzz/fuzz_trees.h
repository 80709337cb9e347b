#pragma once

// Comparing a tree with the tree that its written text gives back. The
// writer is lossy in four ways that the language of the files asks for: a
// text that is empty is not written; white space at the edges of a text
// (which only entities such as "&#13;" put there) is stripped when the text
// is read back; neighbouring texts (which only an empty raw section between
// them leaves in a tree) come back as one; and a multi-byte character cut by
// the end of a name, a text or a value comes back as '_'. So strings are
// compared as writing and reading give them back, and contents with
// neighbouring texts joined, stripped, and dropped when nothing is left.
// That is done to the tree that was written; the tree read back is taken as
// it stands. Trees of any depth are walked without recursion.

#include "xml/xml_node.h"

#include <QByteArray>
#include <QVector>

#include <cstdlib>
#include <utility>

namespace fuzztree {

inline QByteArray asWritten(const char *text)
{
    if (text == nullptr)
        return QByteArray();
    QByteArray escaped(encodeEntities(text, nullptr), 0);
    encodeEntities(text, escaped.data());
    char *back = decodeEntities(escaped.constData(), escaped.size(), nullptr);
    const QByteArray out(back ? back : "");
    free(back);
    return out;
}

inline QByteArray nameAsWritten(const char *name)
{
    if (name == nullptr)
        return QByteArray();
    QByteArray out(encodeName(name, nullptr), 0);
    encodeName(name, out.data());
    return out;
}

struct Entry
{
    int kind;                        // xmlOrderChild, xmlOrderText, xmlOrderClear
    const XmlNodeData *child = nullptr;
    QByteArray text;                 // a text as written, or a raw section whole
};

inline QByteArray stripped(const QByteArray &text)
{
    int begin = 0;
    int end = text.size();
    while (begin < end && isXmlSpace(text[begin]))
        ++begin;
    while (end > begin && isXmlSpace(text[end - 1]))
        --end;
    return text.mid(begin, end - begin);
}

// The content of `n`; as the writer gives it back when `written` is set.
inline QVector<Entry> contentOf(const XmlNodeData *n, bool written)
{
    QVector<Entry> out;
    QByteArray run; // neighbouring texts, joined
    const auto endRun = [&] {
        const QByteArray text = stripped(run);
        if (!text.isEmpty())
            out.append(Entry{xmlOrderText, nullptr, text});
        run.clear();
    };
    const int total = n->childCount + n->textCount + n->clearCount;
    for (int j = 0; j < total; ++j) {
        const int kind = n->order[j] % 4;
        const int index = n->order[j] / 4;
        if (kind == xmlOrderText && written) {
            run += asWritten(n->texts[index]);
            continue;
        }
        if (kind == xmlOrderText) {
            out.append(Entry{kind, nullptr, QByteArray(n->texts[index])});
            continue;
        }
        endRun();
        if (kind == xmlOrderChild) {
            out.append(Entry{kind, n->children[index], QByteArray()});
        } else {
            const XmlClear &c = n->clears[index];
            QByteArray whole(c.opening);
            whole.append(c.content).append(c.closing);
            out.append(Entry{kind, nullptr, whole});
        }
    }
    endRun();
    return out;
}

// `b` was read back from the text written of `a`.
inline bool sameHead(const XmlNodeData *a, const XmlNodeData *b)
{
    if (nameAsWritten(a->name) != QByteArray(b->name) || a->isDeclaration != b->isDeclaration)
        return false;
    if ((a->name == nullptr) != (b->name == nullptr))
        return false;
    int j = 0;
    for (int i = 0; i < a->attributeCount; ++i) {
        const XmlAttribute &x = a->attributes[i];
        if (x.name == nullptr || x.name[0] == 0)
            continue; // an attribute without name is not written
        if (j >= b->attributeCount)
            return false;
        const XmlAttribute &y = b->attributes[j++];
        if (nameAsWritten(x.name) != QByteArray(y.name) || (x.value == nullptr) != (y.value == nullptr)
            || asWritten(x.value) != QByteArray(y.value))
            return false;
    }
    return j == b->attributeCount;
}

// The unnamed root of a parse gives way to its only element when it holds
// nothing else, so one whose other content is not written back does too.
inline const XmlNodeData *topOf(const XmlNodeData *n, bool written)
{
    if (n == nullptr || n->name != nullptr || n->attributeCount > 0)
        return n;
    const QVector<Entry> content = contentOf(n, written);
    return content.size() == 1 && content[0].kind == xmlOrderChild ? content[0].child : n;
}

// Whether `b`, read from the text written of `a`, is the same tree.
inline bool sameTree(const XmlNode &a, const XmlNode &b)
{
    QVector<std::pair<const XmlNodeData *, const XmlNodeData *>> pending{
        {topOf(a.data(), true), topOf(b.data(), false)}};
    while (!pending.isEmpty()) {
        const auto [x, y] = pending.takeLast();
        if (x == nullptr || y == nullptr) {
            if (x != y)
                return false;
            continue;
        }
        if (!sameHead(x, y))
            return false;
        const QVector<Entry> cx = contentOf(x, true);
        const QVector<Entry> cy = contentOf(y, false);
        if (cx.size() != cy.size())
            return false;
        for (int i = 0; i < cx.size(); ++i) {
            if (cx[i].kind != cy[i].kind || cx[i].text != cy[i].text)
                return false;
            if (cx[i].kind == xmlOrderChild)
                pending.append(std::make_pair(cx[i].child, cy[i].child));
        }
    }
    return true;
}

} // namespace fuzztree

using fuzztree::sameTree;
