#pragma once

// The XML tree: reference-counted handles on bodies that own their strings
// and arrays, all taken from the C allocator and released with free().
// Including this header gives the whole library: parser, file readers,
// escaping and the writer.

#include "xml/xml_escape.h"
#include "xml/xml_file.h"
#include "xml/xml_parser.h"

struct XmlAttribute
{
    char *name;  // owned
    char *value; // owned; null for an attribute without value
};

struct XmlClear
{
    char *content;       // owned
    const char *opening; // not owned: a row of xmlClearTags
    const char *closing; // not owned: that row or xmlDoctypeSubsetClosing
};

// Kinds of the entries of XmlNodeData::order: index * 4 + kind.
enum XmlOrderKind { xmlOrderChild = 0, xmlOrderText = 2, xmlOrderClear = 3 };

struct XmlNodeData
{
    char *name; // owned; null only on the unnamed root of a parse
    int childCount;
    int textCount;
    int clearCount;
    int attributeCount;
    bool isDeclaration;     // opened with "<?"
    XmlNodeData *parent;    // not owned; null on a root
    XmlNodeData **children; // each entry holds one reference, as a handle does
    char **texts;           // owned text runs
    XmlClear *clears;
    XmlAttribute *attributes; // in order of appearance
    int *order;               // document order of children, texts and raw sections
    int refCount;             // handles (and the parent) on this body
};

// Entries of an array's first allocation while a parse fills it; the array
// doubles whenever it is full, and shrinks to its count when its element
// closes. Most elements hold a handful of attributes and children, so a small
// start keeps the tree dense. A step of 0 grows by one entry.
constexpr int xmlGrowthStep = 4;

// Building, for the parser. Strings passed in are taken over.
XmlNodeData *createNode(XmlNodeData *parent, char *name, bool isDeclaration);
XmlNodeData *addChild(XmlNodeData *node, char *name, bool isDeclaration, int position, int step);
void addText(XmlNodeData *node, char *text, int position, int step);
// Null delimiters stand for those of CDATA.
void addClear(XmlNodeData *node, char *content, const char *opening, const char *closing,
              int position, int step);
void addAttribute(XmlNodeData *node, char *name, char *value, int step);
void removeClear(XmlNodeData *node, int index);
// Shrinks every array to its count. Only for closed elements: the growth
// rule assumes the sizes it allocated itself.
void compact(XmlNodeData *node);
// Takes one reference away and destroys the body when none is left.
void releaseNode(XmlNodeData *node);

// Handle on a body, possibly none: the empty node. Every operation is safe on
// the empty node and gives null, 0 or the empty node, so calls chain freely.
class XmlNode
{
public:
    XmlNode() = default;
    // Adds a reference to `data`.
    explicit XmlNode(XmlNodeData *data);
    // Takes over a reference the caller already holds.
    static XmlNode adopt(XmlNodeData *data);
    XmlNode(const XmlNode &other);
    XmlNode(XmlNode &&other) noexcept;
    XmlNode &operator=(const XmlNode &other);
    XmlNode &operator=(XmlNode &&other) noexcept;
    ~XmlNode();

    bool isEmpty() const { return d == nullptr; }
    XmlNodeData *data() const { return d; }
    const char *name() const;
    bool isDeclaration() const;
    XmlNode parent() const;

    // Value of the attribute, or null if absent or without value. The search
    // starts at *iterator; on a hit *iterator moves behind it.
    const char *attribute(const char *name, int *iterator = nullptr) const;
    int attributeCount() const;
    const char *attributeName(int i) const;
    const char *attributeValue(int i) const;

    XmlNode childNode(const char *name, int *iterator = nullptr) const;
    XmlNode childAt(int i) const;
    int childCount() const;
    int namedChildCount(const char *name) const;
    const char *textAt(int i) const;
    int textCount() const;
    const XmlClear *clearAt(int i) const;
    int clearCount() const;

    // Moves `child` under this node at `position` of the content (-1: the
    // end). An unnamed root gives its children instead. Returns `child`.
    XmlNode addChildNode(XmlNode child, int position = -1);
    // Detaches the node and destroys its subtree now, whatever handles
    // exist; those handles keep an emptied body.
    void removeFromTree();

    // The node as text; a new string the caller frees, or null for the empty
    // node. `format` indents with tabs when white space is stripped on input,
    // up to xmlIndentLimit tabs. Null as well for a text of 2 GiB or more,
    // whose size no int holds, or when memory runs out.
    char *xmlText(bool format, int *size = nullptr) const;

private:
    XmlNodeData *d = nullptr;
};

// The empty node, for callers that want a reference to one.
extern const XmlNode xmlEmptyNode;

// Indentation stops growing at this many tabs: deeper elements are written
// at the same indentation, so that a formatted text stays linear in the size
// of the tree however deep it is. The program's own files nest a few levels.
constexpr int xmlIndentLimit = 32;

// Writes the node into `buffer`, or only measures when it is null. `format`
// is -1 for none, or the depth in tabs. Returns the length. Any depth is
// written without recursion.
long long serializeNode(const XmlNodeData *node, char *buffer, int format);
