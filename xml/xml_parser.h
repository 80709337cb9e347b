#pragma once

#include <array>

// The program's own forgiving XML reader. It reads one NUL-terminated byte
// string in a single pass and builds the tree of xml_node.h directly. It
// matches tag names without regard to case, takes attributes without values
// and keeps the tree when an end tag is missing.

class XmlNode;
struct XmlNodeData;

// Report of one parse. No caller shows the codes to a user; tests and the
// tools print them.
struct XmlResult
{
    enum Status {
        ok = 0,
        missingEndTag = 1,     // closing tag does not fit, or text ends inside an element
        noElements = 2,        // the text holds no element
        emptyFile = 3,         // parseXmlFile: zero bytes
        missingTagName = 4,    // '<' or '<?' without a name
        badClosingTag = 5,     // '</' not followed by a name and '>'
        unmatchedEndTag = 6,   // a closing tag reached the unnamed root
        unterminatedClear = 7, // raw section without its closing delimiter
        unexpectedToken = 8,   // wrong kind of token inside a tag
        noText = 9,            // null input
        fileNotFound = 10,     // parseXmlFile: cannot open
        rootNotFound = 11,     // the named root element is missing
        badEntity = 12,        // entity not in the table, or malformed
        entityOutOfRange = 13, // numeric entity above 255
        conversionFailed = 14  // parseXmlFile: 16-bit text could not be converted
    };
    int status = ok;
    int line = 0;
    int column = 0;
};

enum class XmlEncoding { Utf8, ActiveCodePage };

// Process-wide switches. The program never changes them; they are a struct
// rather than constants so that the paths they guard can be tested.
struct XmlOptions
{
    XmlEncoding encoding = XmlEncoding::Utf8;
    bool guessUnicode = false;
    bool stripWhitespace = true;
    bool mergeTextAroundComments = true;
};
extern XmlOptions xmlOptions;

// Length of the character that begins with each byte value. Stepping by it
// never splits a multi-byte character; NUL has size 0 so a walk stops there.
constexpr std::array<signed char, 256> makeUtf8SizeTable()
{
    std::array<signed char, 256> t{};
    for (int b = 0; b < 256; ++b) {
        if (b == 0)
            t[b] = 0;
        else if (b >= 0xC2 && b <= 0xDF)
            t[b] = 2;
        else if (b >= 0xE0 && b <= 0xEF)
            t[b] = 3;
        else if (b >= 0xF0 && b <= 0xF4)
            t[b] = 4;
        else
            t[b] = 1;
    }
    return t;
}
inline constexpr std::array<signed char, 256> utf8SizeTable = makeUtf8SizeTable();
static_assert(utf8SizeTable.size() == 256, "one entry per byte value");
static_assert(utf8SizeTable[0x00] == 0 && utf8SizeTable[0xC1] == 1 && utf8SizeTable[0xC2] == 2 &&
                  utf8SizeTable[0xEF] == 3 && utf8SizeTable[0xF4] == 4 && utf8SizeTable[0xF5] == 1,
              "boundaries of the multi-byte forms");

// Size of the character at p, cut short at a NUL inside a malformed
// sequence so that no walk ever passes the end of the text.
inline int xmlCharSize(const char *p)
{
    const int size = utf8SizeTable[static_cast<unsigned char>(*p)];
    for (int i = 1; i < size; ++i)
        if (p[i] == 0)
            return i;
    return size;
}

// Classes of the scanner, one bit each, read from a 256-entry table.
enum XmlCharClass : unsigned char {
    xmlSpace = 1,     // line feed, blank, tab, carriage return
    xmlTextStop = 2,  // ends a text token: white space, '<', '>', '=', '/', NUL, bytes >= 0x80
    xmlBodyStop = 4,  // ends a run of body text: '<', NUL, bytes >= 0x80
    xmlQuoteStop = 8, // ends a quote scan: '<', '"', '\'', NUL, bytes >= 0x80
};
constexpr std::array<unsigned char, 256> makeXmlCharClassTable()
{
    std::array<unsigned char, 256> t{};
    for (int b = 0; b < 256; ++b) {
        unsigned char c = 0;
        if (b == '\n' || b == ' ' || b == '\t' || b == '\r')
            c |= xmlSpace | xmlTextStop;
        if (b == '<' || b == '>' || b == '=' || b == '/' || b == 0 || b >= 0x80)
            c |= xmlTextStop;
        if (b == '<' || b == 0 || b >= 0x80)
            c |= xmlBodyStop | xmlQuoteStop;
        if (b == '"' || b == '\'')
            c |= xmlQuoteStop;
        t[b] = c;
    }
    return t;
}
inline constexpr std::array<unsigned char, 256> xmlCharClass = makeXmlCharClassTable();
static_assert(xmlCharClass.size() == 256, "one entry per byte value");

inline bool isXmlSpace(char c)
{
    return xmlCharClass[static_cast<unsigned char>(c)] & xmlSpace;
}

// A raw section: copied as it stands, never decoded. Testing is byte-exact
// and case-sensitive, in the order of the table, which ends with a null row.
struct XmlClearTag
{
    const char *opening;
    int length;
    const char *closing;
};
extern const XmlClearTag xmlClearTags[5];
// Closing used instead of ">" by a DOCTYPE that holds an internal subset.
extern const char xmlDoctypeSubsetClosing[];
// The row of comments: a raw section is a comment when its opening is this pointer.
const char *xmlCommentOpening();

struct XmlEntity
{
    const char *text;
    int length;
    char character;
};
extern const XmlEntity xmlEntities[5];

// State of one parse.
struct XmlParseState
{
    char *text = nullptr;        // the whole input
    char *pendingText = nullptr; // start of the text run not stored yet
    int index = 0;               // cursor, in bytes
    int errorIndex = 0;          // position reported for missingEndTag
    int status = XmlResult::ok;
    char *endTag = nullptr; // closing tag travelling up to its element
    int endTagLength = 0;   // 0: none travelling
    bool first = false;     // true only for the call on the unnamed root
};

enum class XmlTokenKind {
    end,
    quoted,
    shortClose,
    clear,
    closeStart,
    declStart,
    open,
    equals,
    close,
    text
};

struct XmlToken
{
    XmlTokenKind kind = XmlTokenKind::end;
    const char *start = nullptr;
    int length = 0;
    const XmlClearTag *clear = nullptr; // row of the table for a raw section
};

XmlToken nextToken(XmlParseState *state);

// Reads the content of `node`, whose opening tag was read up to its name.
// Returns true if the caller may go on, false if the parse is over.
bool parseElement(XmlNodeData *node, XmlParseState *state);

// Copies `length` bytes (or up to a NUL) with the entities replaced. Returns a
// new string that the caller frees, or null with state->status set.
char *decodeEntities(const char *text, int length, XmlParseState *state);

// `tag` null or empty: no named root is looked for. `result` may be null.
XmlNode parseXmlText(const char *text, const char *tag, XmlResult *result);
