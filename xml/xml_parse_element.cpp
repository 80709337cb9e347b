// The reader of elements and the entry point on a text. Open elements are
// kept on a stack of their own, not on the machine's: a file nested a
// million levels deep is read like any other, in memory linear in its size.

#include "xml/xml_node.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <strings.h>
#include <vector>

namespace {

char *copyBytes(const char *p, int length)
{
    char *s = static_cast<char *>(malloc(length + 1));
    memcpy(s, p, length);
    s[length] = 0;
    return s;
}

int cursorOf(const XmlParseState *state, const char *p)
{
    return static_cast<int>(p - state->text);
}

char *cursor(XmlParseState *state)
{
    return state->text + state->index;
}

// A closing tag fits a name when the name matches over its full length and
// the tag ends there.
bool closingTagFits(const char *name, const char *tag)
{
    if (name == nullptr)
        return false;
    const size_t length = strlen(name);
    if (strncasecmp(name, tag, length) != 0)
        return false;
    const char behind = tag[length];
    return isXmlSpace(behind) || behind == '/' || behind == '<' || behind == '>' || behind == '=';
}

// Appends `text` to the last text of the node when a comment separates them.
bool mergeAcrossComment(XmlNodeData *node, char *text)
{
    const int total = node->childCount + node->textCount + node->clearCount;
    if (!xmlOptions.mergeTextAroundComments || total < 2)
        return false;
    const int last = node->order[total - 1];
    const int before = node->order[total - 2];
    if (last % 4 != xmlOrderClear || before % 4 != xmlOrderText ||
        node->clears[last / 4].opening != xmlCommentOpening())
        return false;
    removeClear(node, last / 4);
    char *&previous = node->texts[before / 4];
    const size_t a = strlen(previous);
    const size_t b = strlen(text);
    previous = static_cast<char *>(realloc(previous, a + b + 1));
    memcpy(previous + a, text, b + 1);
    free(text);
    return true;
}

// Stores the text run from pendingText up to `end`. Returns true on failure.
bool addPendingText(XmlNodeData *node, XmlParseState *state, const char *end)
{
    const char *start = state->pendingText;
    if (start == nullptr)
        return false;
    if (xmlOptions.stripWhitespace) {
        while (start < end && isXmlSpace(*start))
            ++start;
        while (end > start && isXmlSpace(end[-1]))
            --end;
    }
    if (start >= end) {
        state->pendingText = nullptr;
        return false;
    }
    char *text = decodeEntities(start, static_cast<int>(end - start), state);
    if (text == nullptr)
        return true;
    state->pendingText = nullptr;
    if (!mergeAcrossComment(node, text))
        addText(node, text, -1, xmlGrowthStep);
    return false;
}

bool parseClearSection(XmlNodeData *node, XmlParseState *state, const XmlClearTag *row)
{
    const char *content = cursor(state);
    const char *closing = row->closing;
    const char *end = nullptr;
    if (row == &xmlClearTags[1]) {
        // Byte by byte: '<' and '>' are never part of a well-formed
        // character, and a broken lead byte must not hide the one after it
        // (the written text, where that byte has become a replacement
        // character, would then read otherwise).
        for (const char *p = content; *p; ++p) {
            if (*p == '>') {
                end = p;
                break;
            }
            if (*p == '<') {
                closing = xmlDoctypeSubsetClosing;
                end = strstr(content, closing);
                break;
            }
        }
    } else {
        end = strstr(content, closing);
    }
    if (end == nullptr) {
        state->status = XmlResult::unterminatedClear;
        return false;
    }
    state->index = cursorOf(state, end) + static_cast<int>(strlen(closing));
    if (end > content)
        addClear(node, copyBytes(content, static_cast<int>(end - content)), row->opening, closing,
                 -1, xmlGrowthStep);
    return true;
}

// First byte at or above 0x80 in [p, end), or null; eight bytes at a time.
const char *firstHighByte(const char *p, const char *end)
{
    constexpr uint64_t highBits = 0x8080808080808080ull;
    for (; p + 8 <= end; p += 8) {
        uint64_t word;
        memcpy(&word, p, 8);
        if (word & highBits)
            break;
    }
    for (; p < end; ++p)
        if (static_cast<unsigned char>(*p) >= 0x80)
            return p;
    return nullptr;
}

// Runs of body text are skipped in one go: inside a body only '<' and the
// end of the text start a token that matters. Multi-byte characters are
// stepped over whole, so a malformed one swallows what its size covers, as
// the token reader would.
void skipBodyText(XmlParseState *state)
{
    const char *p = cursor(state);
    for (;;) {
        const char *stop = strchrnul(p, '<');
        const char *high = firstHighByte(p, stop);
        if (high == nullptr) {
            p = stop;
            break;
        }
        p = high;
        while (static_cast<unsigned char>(*p) >= 0x80)
            p += xmlCharSize(p);
    }
    state->index = cursorOf(state, p);
}

// A name that is the mark alone ("<??>") keeps it: an empty name would be
// written back as "<? ", which reads as a tag without a name.
void dropTrailingQuestionMark(char *name)
{
    const size_t length = name ? strlen(name) : 0;
    if (length > 1 && name[length - 1] == '?')
        name[length - 1] = 0;
}

enum class AttributeState { expectName, haveName, haveEquals };

// What a step of an element's reader asks of the loop in parseElement.
enum StepResult : int {
    stepFail = -1,    // the parse is over
    stepClosed = 0,   // the element is closed; its parent goes on
    stepGoOn = 1,     // read the next token of this element
    stepDescend = 2,  // a child was opened: read it before going on here
};

struct ElementReader
{
    XmlNodeData *node;
    XmlParseState *state;
    bool inBody;
    AttributeState attributeState = AttributeState::expectName;
    XmlToken attributeName;
    XmlNodeData *child = nullptr; // the child that stepDescend opened

    int step();
    int afterChild();
    int onEnd();
    int onChild(bool declaration, const XmlToken &token);
    int onCloseTag(const XmlToken &token);
    int onClear(const XmlToken &token);
    int inTag(const XmlToken &token);
    int closeTag(bool shortClose);
    int onValue(const XmlToken &token);
    void addValuelessAttribute();
};

// Reads one token of the element and acts on it.
int ElementReader::step()
{
    if (inBody)
        skipBodyText(state);
    const XmlToken token = nextToken(state);
    if (token.kind == XmlTokenKind::end)
        return onEnd();
    if (!inBody)
        return inTag(token);
    if (token.kind == XmlTokenKind::open || token.kind == XmlTokenKind::declStart)
        return onChild(token.kind == XmlTokenKind::declStart, token);
    if (token.kind == XmlTokenKind::closeStart)
        return onCloseTag(token);
    if (token.kind == XmlTokenKind::clear)
        return onClear(token);
    return stepGoOn;
}

int ElementReader::onEnd()
{
    if (!node->isDeclaration && node->parent) {
        state->status = XmlResult::missingEndTag;
        state->errorIndex = state->index;
    }
    addPendingText(node, state, cursor(state));
    return stepFail;
}

int ElementReader::onChild(bool declaration, const XmlToken &token)
{
    if (addPendingText(node, state, token.start))
        return stepFail;
    const XmlToken name = nextToken(state);
    if (name.kind != XmlTokenKind::text) {
        state->status = XmlResult::missingTagName;
        return stepFail;
    }
    child = addChild(node, copyBytes(name.start, name.length), declaration, -1, xmlGrowthStep);
    return stepDescend;
}

// The child opened last has closed. A closing tag that did not fit it
// travels up to the element it belongs to.
int ElementReader::afterChild()
{
    if (state->endTagLength == 0)
        return stepGoOn;
    if (node->name == nullptr) {
        state->status = XmlResult::unmatchedEndTag;
        return stepFail;
    }
    if (closingTagFits(node->name, state->endTag))
        state->endTagLength = 0;
    compact(node);
    return stepClosed;
}

int ElementReader::onCloseTag(const XmlToken &token)
{
    if (addPendingText(node, state, token.start))
        return stepFail;
    const XmlToken name = nextToken(state);
    if (name.kind != XmlTokenKind::text || nextToken(state).kind != XmlTokenKind::close) {
        state->status = XmlResult::badClosingTag;
        return stepFail;
    }
    state->pendingText = cursor(state);
    if (!closingTagFits(node->name, name.start)) {
        state->status = XmlResult::missingEndTag;
        state->errorIndex = state->index;
        state->endTag = const_cast<char *>(name.start);
        state->endTagLength = name.length;
    }
    compact(node);
    return stepClosed;
}

int ElementReader::onClear(const XmlToken &token)
{
    if (addPendingText(node, state, token.start))
        return stepFail;
    if (!parseClearSection(node, state, token.clear))
        return stepFail;
    state->pendingText = cursor(state);
    return stepGoOn;
}

void ElementReader::addValuelessAttribute()
{
    if (attributeName.length > 0)
        addAttribute(node, copyBytes(attributeName.start, attributeName.length), nullptr,
                     xmlGrowthStep);
}

int ElementReader::closeTag(bool shortClose)
{
    state->pendingText = cursor(state);
    if (node->isDeclaration) {
        if (attributeName.length > 0 && attributeName.start[attributeName.length - 1] == '?')
            --attributeName.length;
        else if (attributeState == AttributeState::expectName)
            dropTrailingQuestionMark(node->name); // "<?pi?>": the mark sticks to the name
        if (node->parent && node->parent->parent)
            shortClose = true;
    }
    addValuelessAttribute();
    if (shortClose) {
        compact(node);
        return stepClosed;
    }
    inBody = true;
    attributeState = AttributeState::expectName;
    return stepGoOn;
}

int ElementReader::onValue(const XmlToken &token)
{
    const char *value = token.start;
    int length = token.length;
    if (node->isDeclaration && length > 0 && value[length - 1] == '?')
        --length;
    if (token.kind == XmlTokenKind::quoted) {
        ++value;
        length -= 2;
    }
    char *decoded = decodeEntities(value, length, state);
    if (decoded == nullptr)
        return stepFail;
    if (attributeName.length > 0)
        addAttribute(node, copyBytes(attributeName.start, attributeName.length), decoded,
                     xmlGrowthStep);
    else
        free(decoded);
    attributeState = AttributeState::expectName;
    return stepGoOn;
}

int ElementReader::inTag(const XmlToken &token)
{
    const XmlTokenKind kind = token.kind;
    switch (attributeState) {
    case AttributeState::expectName:
        if (kind == XmlTokenKind::text) {
            attributeName = token;
            attributeState = AttributeState::haveName;
            return stepGoOn;
        }
        if (kind == XmlTokenKind::close || kind == XmlTokenKind::shortClose) {
            attributeName = XmlToken();
            return closeTag(kind == XmlTokenKind::shortClose);
        }
        break;
    case AttributeState::haveName:
        if (kind == XmlTokenKind::text) {
            addValuelessAttribute();
            attributeName = token;
            return stepGoOn;
        }
        if (kind == XmlTokenKind::equals) {
            attributeState = AttributeState::haveEquals;
            return stepGoOn;
        }
        if (kind == XmlTokenKind::close || kind == XmlTokenKind::shortClose)
            return closeTag(kind == XmlTokenKind::shortClose);
        break;
    case AttributeState::haveEquals:
        if (kind == XmlTokenKind::text || kind == XmlTokenKind::quoted)
            return onValue(token);
        break;
    }
    state->status = XmlResult::unexpectedToken;
    return stepFail;
}

// Line and column of a byte position, both from 1, stepping by character.
void positionOf(const char *text, int index, XmlResult *result)
{
    result->line = 1;
    result->column = 1;
    for (const char *p = text; p < text + index && *p; p += xmlCharSize(p)) {
        if (*p == '\n') {
            ++result->line;
            result->column = 1;
        } else {
            ++result->column;
        }
    }
}

} // namespace

bool parseElement(XmlNodeData *node, XmlParseState *state)
{
    std::vector<ElementReader> open; // innermost element last
    open.push_back(ElementReader{node, state, state->first, AttributeState::expectName, XmlToken()});
    state->first = false;
    for (;;) {
        int go = open.back().step();
        if (go == stepDescend) {
            XmlNodeData *child = open.back().child;
            open.push_back(ElementReader{child, state, false, AttributeState::expectName, XmlToken()});
            continue;
        }
        while (go == stepClosed || go == stepFail) {
            open.pop_back();
            if (open.empty())
                return go == stepClosed;
            if (go == stepClosed)
                go = open.back().afterChild();
        }
    }
}

XmlNode parseXmlText(const char *text, const char *tag, XmlResult *result)
{
    XmlResult local;
    XmlResult &r = result ? *result : local;
    r = XmlResult();
    if (text == nullptr) {
        r.status = XmlResult::noText;
        return XmlNode();
    }
    XmlParseState state;
    state.text = const_cast<char *>(text); // read only: the parser never writes the input
    state.pendingText = state.text;
    state.first = true;
    XmlNode root = XmlNode::adopt(createNode(nullptr, nullptr, false));
    parseElement(root.data(), &state);
    XmlNodeData *body = root.data();
    if (body->childCount == 0)
        state.status = XmlResult::noElements;
    if (body->childCount == 1 && body->textCount == 0 && body->clearCount == 0 &&
        body->attributeCount == 0)
        root = root.childAt(0); // the only element takes the place of the unnamed root
    const bool keep = state.status == XmlResult::ok || state.status == XmlResult::missingEndTag ||
                      state.status == XmlResult::noElements;
    if (!keep)
        root = XmlNode();
    if (keep && tag && tag[0] && !(root.name() && strcasecmp(root.name(), tag) == 0)) {
        root = root.childNode(tag);
        if (root.isEmpty()) {
            r.status = XmlResult::rootNotFound;
            return root;
        }
    }
    r.status = state.status;
    if (r.status != XmlResult::ok)
        positionOf(text, r.status == XmlResult::missingEndTag ? state.errorIndex : state.index, &r);
    return root;
}
