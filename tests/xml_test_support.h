#pragma once

// Helpers shared by the XML tests: a compact text form of a tree, so that a
// test row reads as input -> expected tree, and a recursive comparison that
// names the first difference.

#include "xml/xml_node.h"

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <cstring>

namespace xmltest {

inline QByteArray quoted(const char *s)
{
    return s ? QByteArray("\"") + QByteArray(s) + "\"" : QByteArray("null");
}

// name{attr=value,bare}(content...), texts in quotes, raw sections as
// [opening|content|closing]; "?" before a declaration's name; "#root" for
// the unnamed root; "-" for the empty node.
inline QByteArray dump(const XmlNodeData *n)
{
    if (n == nullptr)
        return "-";
    QByteArray out = n->isDeclaration ? "?" : "";
    out += n->name ? QByteArray(n->name) : QByteArray("#root");
    if (n->attributeCount > 0) {
        out += '{';
        for (int i = 0; i < n->attributeCount; ++i) {
            if (i)
                out += ',';
            out += n->attributes[i].name;
            if (n->attributes[i].value)
                out.append('=').append(n->attributes[i].value);
        }
        out += '}';
    }
    const int total = n->childCount + n->textCount + n->clearCount;
    if (total == 0)
        return out;
    out += '(';
    for (int j = 0; j < total; ++j) {
        if (j)
            out += ' ';
        const int index = n->order[j] / 4;
        switch (n->order[j] % 4) {
        case xmlOrderChild:
            out += dump(n->children[index]);
            break;
        case xmlOrderText:
            out += quoted(n->texts[index]);
            break;
        case xmlOrderClear:
            out.append('[').append(n->clears[index].opening).append('|');
            out.append(n->clears[index].content).append('|');
            out.append(n->clears[index].closing).append(']');
            break;
        default:
            out += "?order";
        }
    }
    out += ')';
    return out;
}

inline QByteArray dump(const XmlNode &node)
{
    return dump(node.data());
}

inline bool sameString(const char *a, const char *b)
{
    return (a == nullptr && b == nullptr) || (a && b && strcmp(a, b) == 0);
}

// Empty when both trees are equal, else where and how they differ.
inline QString compareTrees(const XmlNodeData *a, const XmlNodeData *b, const QString &path = "/")
{
    if (!a || !b)
        return a == b ? QString() : path + ": one side is empty";
    const QString here = path + QString::fromUtf8(a->name ? a->name : "#root");
    if (!sameString(a->name, b->name) || a->isDeclaration != b->isDeclaration)
        return here + ": name or declaration flag differ";
    if (a->attributeCount != b->attributeCount)
        return here + ": attribute counts differ";
    for (int i = 0; i < a->attributeCount; ++i)
        if (!sameString(a->attributes[i].name, b->attributes[i].name) ||
            !sameString(a->attributes[i].value, b->attributes[i].value))
            return here + QString(": attribute %1 differs").arg(i);
    const int total = a->childCount + a->textCount + a->clearCount;
    if (a->childCount != b->childCount || a->textCount != b->textCount ||
        a->clearCount != b->clearCount)
        return here + ": content counts differ";
    for (int j = 0; j < total; ++j)
        if (a->order[j] != b->order[j])
            return here + QString(": order entry %1 differs").arg(j);
    for (int i = 0; i < a->textCount; ++i)
        if (!sameString(a->texts[i], b->texts[i]))
            return here + QString(": text %1 differs").arg(i);
    for (int i = 0; i < a->clearCount; ++i)
        if (!sameString(a->clears[i].content, b->clears[i].content) ||
            a->clears[i].opening != b->clears[i].opening ||
            a->clears[i].closing != b->clears[i].closing)
            return here + QString(": raw section %1 differs").arg(i);
    for (int i = 0; i < a->childCount; ++i) {
        if (a->children[i]->parent != a || b->children[i]->parent != b)
            return here + QString(": child %1 has a wrong parent").arg(i);
        const QString diff = compareTrees(a->children[i], b->children[i], here + "/");
        if (!diff.isEmpty())
            return diff;
    }
    return QString();
}

// xmlText as a QByteArray, the C string freed.
inline QByteArray text(const XmlNode &node, bool format)
{
    int size = -1;
    char *s = node.xmlText(format, &size);
    const QByteArray out = s ? QByteArray(s, size) : QByteArray();
    free(s);
    return out;
}

} // namespace xmltest
