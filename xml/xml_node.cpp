#include "xml/xml_node.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <strings.h>

const XmlNode xmlEmptyNode;

namespace {

// Names of a tree compared as the C library compares them without regard
// to case. Most candidates differ in their first byte already; where both
// first bytes are ASCII that is settled here without the call.
bool sameName(const char *a, const char *b)
{
    const unsigned char x = static_cast<unsigned char>(a[0]);
    const unsigned char y = static_cast<unsigned char>(b[0]);
    if (x < 0x80 && y < 0x80) {
        const unsigned char lx = x >= 'A' && x <= 'Z' ? x + 32 : x;
        const unsigned char ly = y >= 'A' && y <= 'Z' ? y + 32 : y;
        if (lx != ly)
            return false;
        if (x == 0)
            return true;
    }
    return strcasecmp(a, b) == 0;
}

// Entries held by an array of `count` items while its element is open:
// `step` at first, doubled as often as needed. Nothing records a capacity:
// it follows from the count, and doubling keeps a long list of siblings from
// being copied over and over as it grows.
int openCapacity(int count, int step)
{
    int size = step;
    while (size < count && size <= INT_MAX / 2)
        size *= 2;
    return size;
}

// Whether an open array of `count` entries is full: `count` is `step`
// doubled a whole number of times.
bool isFull(int count, int step)
{
    const int blocks = count / step;
    return count % step == 0 && blocks > 0 && (blocks & (blocks - 1)) == 0;
}

// Reallocates `array` so that index `count` fits. Step 0, the rule of
// finished nodes, grows by one entry.
template <typename T> void growFor(T *&array, int count, int step)
{
    int size = -1;
    if (step == 0)
        size = count + 1;
    else if (array == nullptr)
        size = openCapacity(count + 1, step);
    else if (isFull(count, step))
        size = openCapacity(count + 1, step);
    if (size > 0)
        array = static_cast<T *>(realloc(array, sizeof(T) * size));
}

template <typename T> void shrinkTo(T *&array, int count)
{
    if (array == nullptr)
        return;
    if (count == 0) {
        free(array);
        array = nullptr;
    } else {
        array = static_cast<T *>(realloc(array, sizeof(T) * count));
    }
}

int orderCount(const XmlNodeData *node)
{
    return node->childCount + node->textCount + node->clearCount;
}

// Places a new entry of `kind` in `order` and returns the index its value
// takes in the array of that kind, whose count is `kindCount`.
int insertOrder(XmlNodeData *node, int kind, int kindCount, int position, int step)
{
    const int total = orderCount(node);
    growFor(node->order, total, step * 3);
    if (position < 0 || position >= total) {
        node->order[total] = kindCount * 4 + kind;
        return kindCount;
    }
    int index = kindCount;
    for (int j = position; j < total; ++j) {
        if (node->order[j] % 4 == kind) {
            index = node->order[j] / 4;
            break;
        }
    }
    for (int j = position; j < total; ++j)
        if (node->order[j] % 4 == kind)
            node->order[j] += 4;
    memmove(node->order + position + 1, node->order + position, sizeof(int) * (total - position));
    node->order[position] = index * 4 + kind;
    return index;
}

// Removes the order entry of `kind` with value index `index`, lowering the
// later ones of that kind. Called before the kind's count is lowered.
void removeOrder(XmlNodeData *node, int kind, int index)
{
    const int total = orderCount(node);
    int at = -1;
    for (int j = 0; j < total; ++j) {
        const int entry = node->order[j];
        if (entry == index * 4 + kind)
            at = j;
        else if (entry % 4 == kind && entry / 4 > index)
            node->order[j] -= 4;
    }
    if (at >= 0)
        memmove(node->order + at, node->order + at + 1, sizeof(int) * (total - at - 1));
}

template <typename T> void openGap(T *array, int count, int index)
{
    memmove(array + index + 1, array + index, sizeof(T) * (count - index));
}

// Takes the node out of its parent's arrays. The parent's reference passes
// to the caller.
void detachFromParent(XmlNodeData *node)
{
    XmlNodeData *p = node->parent;
    if (p == nullptr)
        return;
    for (int i = 0; i < p->childCount; ++i) {
        if (p->children[i] != node)
            continue;
        removeOrder(p, xmlOrderChild, i);
        memmove(p->children + i, p->children + i + 1,
                sizeof(XmlNodeData *) * (p->childCount - i - 1));
        --p->childCount;
        if (p->childCount == 0) {
            free(p->children);
            p->children = nullptr;
        }
        if (orderCount(p) == 0) {
            free(p->order);
            p->order = nullptr;
        }
        break;
    }
    node->parent = nullptr;
}

void insertChild(XmlNodeData *node, XmlNodeData *child, int position, int step)
{
    const int index = insertOrder(node, xmlOrderChild, node->childCount, position, step);
    growFor(node->children, node->childCount, step);
    openGap(node->children, node->childCount, index);
    node->children[index] = child;
    ++node->childCount;
    child->parent = node;
}

// Frees the strings and arrays of the node itself, not its children.
void freeOwnContent(XmlNodeData *node)
{
    for (int i = 0; i < node->textCount; ++i)
        free(node->texts[i]);
    for (int i = 0; i < node->clearCount; ++i)
        free(node->clears[i].content);
    for (int i = 0; i < node->attributeCount; ++i) {
        free(node->attributes[i].name);
        free(node->attributes[i].value);
    }
    free(node->name);
    free(node->children);
    free(node->texts);
    free(node->clears);
    free(node->attributes);
    free(node->order);
    const int refs = node->refCount;
    XmlNodeData *parent = node->parent;
    memset(node, 0, sizeof(*node));
    node->refCount = refs;
    node->parent = parent;
}

// Releases and destroys run without recursion, whatever the depth of the
// tree: bodies waiting to be taken apart are chained through their `parent`
// field, which they no longer need.
void pushPending(XmlNodeData *&pending, XmlNodeData *node)
{
    node->parent = pending;
    pending = node;
}

XmlNodeData *popPending(XmlNodeData *&pending)
{
    XmlNodeData *node = pending;
    pending = node->parent;
    node->parent = nullptr;
    return node;
}

// Each child loses its parent and the parent's reference; a child that
// held no other is queued to be freed as well.
void releaseChildren(XmlNodeData *node, XmlNodeData *&pending)
{
    for (int i = 0; i < node->childCount; ++i) {
        XmlNodeData *child = node->children[i];
        child->parent = nullptr;
        if (--child->refCount == 0)
            pushPending(pending, child);
    }
}

// Destroys the content of the whole subtree at once, whatever the counts:
// every descendant is emptied, and freed when the parent's reference was
// the last one on it.
void destroySubtree(XmlNodeData *node)
{
    XmlNodeData *pending = nullptr;
    XmlNodeData *n = node;
    while (n != nullptr) {
        for (int i = 0; i < n->childCount; ++i)
            pushPending(pending, n->children[i]); // each keeps the parent's reference till then
        freeOwnContent(n);
        if (n != node && --n->refCount == 0)
            free(n);
        n = pending ? popPending(pending) : nullptr;
    }
}

bool isAncestorOrSelf(const XmlNodeData *candidate, const XmlNodeData *node)
{
    for (const XmlNodeData *n = node; n != nullptr; n = n->parent)
        if (n == candidate)
            return true;
    return false;
}

int orderPosition(const XmlNodeData *node, int kind, int index)
{
    const int total = orderCount(node);
    for (int j = 0; j < total; ++j)
        if (node->order[j] == index * 4 + kind)
            return j;
    return -1;
}

} // namespace

XmlNodeData *createNode(XmlNodeData *parent, char *name, bool isDeclaration)
{
    auto *node = static_cast<XmlNodeData *>(calloc(1, sizeof(XmlNodeData)));
    node->name = name;
    node->isDeclaration = isDeclaration;
    node->parent = parent;
    node->refCount = 1;
    return node;
}

XmlNodeData *addChild(XmlNodeData *node, char *name, bool isDeclaration, int position, int step)
{
    XmlNodeData *child = createNode(node, name, isDeclaration);
    insertChild(node, child, position, step);
    return child;
}

void addText(XmlNodeData *node, char *text, int position, int step)
{
    if (text == nullptr)
        return;
    const int index = insertOrder(node, xmlOrderText, node->textCount, position, step);
    growFor(node->texts, node->textCount, step);
    openGap(node->texts, node->textCount, index);
    node->texts[index] = text;
    ++node->textCount;
}

void addClear(XmlNodeData *node, char *content, const char *opening, const char *closing,
              int position, int step)
{
    if (content == nullptr)
        return;
    if (opening == nullptr || closing == nullptr) {
        opening = xmlClearTags[0].opening;
        closing = xmlClearTags[0].closing;
    }
    const int index = insertOrder(node, xmlOrderClear, node->clearCount, position, step);
    growFor(node->clears, node->clearCount, step);
    openGap(node->clears, node->clearCount, index);
    node->clears[index] = XmlClear{content, opening, closing};
    ++node->clearCount;
}

void addAttribute(XmlNodeData *node, char *name, char *value, int step)
{
    if (name == nullptr) {
        free(value);
        return;
    }
    growFor(node->attributes, node->attributeCount, step);
    node->attributes[node->attributeCount++] = XmlAttribute{name, value};
}

void removeClear(XmlNodeData *node, int index)
{
    if (index < 0 || index >= node->clearCount)
        return;
    free(node->clears[index].content);
    removeOrder(node, xmlOrderClear, index);
    memmove(node->clears + index, node->clears + index + 1,
            sizeof(XmlClear) * (node->clearCount - index - 1));
    --node->clearCount;
}

void compact(XmlNodeData *node)
{
    shrinkTo(node->children, node->childCount);
    shrinkTo(node->texts, node->textCount);
    shrinkTo(node->clears, node->clearCount);
    shrinkTo(node->attributes, node->attributeCount);
    shrinkTo(node->order, orderCount(node));
}

void releaseNode(XmlNodeData *node)
{
    if (node == nullptr || --node->refCount > 0)
        return;
    detachFromParent(node);
    XmlNodeData *pending = node;
    while (pending) {
        XmlNodeData *n = popPending(pending);
        releaseChildren(n, pending);
        freeOwnContent(n);
        free(n);
    }
}

XmlNode::XmlNode(XmlNodeData *data) : d(data)
{
    if (d)
        ++d->refCount;
}

XmlNode XmlNode::adopt(XmlNodeData *data)
{
    XmlNode node;
    node.d = data;
    return node;
}

XmlNode::XmlNode(const XmlNode &other) : XmlNode(other.d) {}

XmlNode::XmlNode(XmlNode &&other) noexcept : d(other.d)
{
    other.d = nullptr;
}

XmlNode &XmlNode::operator=(const XmlNode &other)
{
    if (other.d)
        ++other.d->refCount;
    releaseNode(d);
    d = other.d;
    return *this;
}

XmlNode &XmlNode::operator=(XmlNode &&other) noexcept
{
    if (this != &other) {
        releaseNode(d);
        d = other.d;
        other.d = nullptr;
    }
    return *this;
}

XmlNode::~XmlNode()
{
    releaseNode(d);
}

const char *XmlNode::name() const
{
    return d ? d->name : nullptr;
}

bool XmlNode::isDeclaration() const
{
    return d && d->isDeclaration;
}

XmlNode XmlNode::parent() const
{
    return XmlNode(d ? d->parent : nullptr);
}

const char *XmlNode::attribute(const char *name, int *iterator) const
{
    if (!d || !name)
        return nullptr;
    for (int i = iterator ? *iterator : 0; i < d->attributeCount; ++i) {
        if (sameName(d->attributes[i].name, name)) {
            if (iterator)
                *iterator = i + 1;
            return d->attributes[i].value;
        }
    }
    return nullptr;
}

int XmlNode::attributeCount() const
{
    return d ? d->attributeCount : 0;
}

const char *XmlNode::attributeName(int i) const
{
    return d && i >= 0 && i < d->attributeCount ? d->attributes[i].name : nullptr;
}

const char *XmlNode::attributeValue(int i) const
{
    return d && i >= 0 && i < d->attributeCount ? d->attributes[i].value : nullptr;
}

XmlNode XmlNode::childNode(const char *name, int *iterator) const
{
    if (!d || !name)
        return XmlNode();
    for (int i = iterator ? *iterator : 0; i < d->childCount; ++i) {
        const char *childName = d->children[i]->name;
        if (childName && sameName(childName, name)) {
            if (iterator)
                *iterator = i + 1;
            return XmlNode(d->children[i]);
        }
    }
    return XmlNode();
}

XmlNode XmlNode::childAt(int i) const
{
    return d && i >= 0 && i < d->childCount ? XmlNode(d->children[i]) : XmlNode();
}

int XmlNode::childCount() const
{
    return d ? d->childCount : 0;
}

int XmlNode::namedChildCount(const char *name) const
{
    int count = 0;
    for (int i = 0; d && name && i < d->childCount; ++i) {
        const char *childName = d->children[i]->name;
        if (childName && sameName(childName, name))
            ++count;
    }
    return count;
}

const char *XmlNode::textAt(int i) const
{
    return d && i >= 0 && i < d->textCount ? d->texts[i] : nullptr;
}

int XmlNode::textCount() const
{
    return d ? d->textCount : 0;
}

const XmlClear *XmlNode::clearAt(int i) const
{
    return d && i >= 0 && i < d->clearCount ? &d->clears[i] : nullptr;
}

int XmlNode::clearCount() const
{
    return d ? d->clearCount : 0;
}

XmlNode XmlNode::addChildNode(XmlNode child, int position)
{
    XmlNodeData *c = child.d;
    if (!d || !c || isAncestorOrSelf(c, d))
        return child;
    if (c->name) {
        if (c->parent) {
            if (c->parent == d && position >= 0) {
                for (int i = 0; i < d->childCount; ++i) {
                    if (d->children[i] == c) {
                        if (orderPosition(d, xmlOrderChild, i) < position)
                            --position;
                        break;
                    }
                }
            }
            detachFromParent(c);
        } else {
            ++c->refCount;
        }
        insertChild(d, c, position, 0);
        return child;
    }
    while (c->childCount > 0) {
        XmlNodeData *grandChild = c->children[0];
        detachFromParent(grandChild);
        insertChild(d, grandChild, position, 0);
        if (position >= 0)
            ++position;
    }
    return child;
}

void XmlNode::removeFromTree()
{
    if (!d)
        return;
    if (d->parent) {
        detachFromParent(d);
        --d->refCount; // the parent's reference; this handle still holds one
    }
    destroySubtree(d);
}
