// Writing a CfgModel as a .CfgXML. The text is built by hand, byte for byte
// as the engine expects it; the reader goes through the XML tree and does not
// mirror this code.

#include "core/cfg_attributes.h"
#include "core/cfg_model.h"
#include "core/file_replace.h"

#include "text/text_convert.h"
#include "xml/xml_node.h"

#include <QFileInfo>

#include <charconv>

namespace {

const char lineSelectionComment[] = "<!-- type of lineSelection: F=file, E=boolean Expression, "
                                    "S=Moonwick Segment / this is used by QUVM -->\n";
const char targetComment[] =
    "<!-- type of target/response F: file, C: column, E: boolean expression-->\n";

void appendInt(QByteArray &out, int value)
{
    char digits[16];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    out.append(digits, int(result.ptr - digits));
}

void appendText(QByteArray &out, const QString &text)
{
    out += text.toUtf8();
}

// The escape buffer holds one text at a time: each result is appended at once.
void appendEscaped(QByteArray &out, const QString &text)
{
    out += xmlEscape(&xmlEscapeBuffer, text.toUtf8().constData());
}

// A one-byte field as the reader gives it back: the five characters of the
// entity table escaped, and a byte that is no character of UTF-8 alone as a
// numeric entity, which reads back as that very byte. Written raw, such a
// byte would take the closing quote into the value.
void appendCharacter(QByteArray &out, char c)
{
    const unsigned char byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) {
        out += "&#";
        appendInt(out, byte);
        out += ';';
    } else {
        out += xmlEscape(&xmlEscapeBuffer, QByteArray(1, c).constData());
    }
}

void appendAttributeValue(QByteArray &out, const CfgModel &model, const CfgRootAttribute &a)
{
    switch (a.kind) {
    case CfgRootAttribute::Integer:
        appendInt(out, model.*a.integer);
        break;
    case CfgRootAttribute::Number:
        appendStreamNumber(out, model.*a.number);
        break;
    case CfgRootAttribute::AucMax: {
        // 100 percent is a marker that the engine reads as 200.
        const double percent = model.*a.number;
        appendStreamNumber(out, percent == 100.0 ? 200.0 : percent * 0.01);
        break;
    }
    case CfgRootAttribute::EscapedText:
        appendEscaped(out, model.*a.text);
        break;
    }
}

void appendRootTag(QByteArray &out, const CfgModel &model)
{
    out += "<QUV_Config ";
    for (int i = 0; i < cfgRootAttributeCount; ++i) {
        const CfgRootAttribute &a = cfgRootAttributes[i];
        if (i > 0)
            out += "\n ";
        out += a.name;
        out += "='";
        appendAttributeValue(out, model, a);
        out += '\'';
    }
    out += '>';
}

void appendWorkingSpace(QByteArray &out, const CfgModel &model)
{
    if ((model.workingSpaceX == 0 && model.workingSpaceY == 0) || model.workingSpaceW < 0
        || model.workingSpaceH < 0)
        return;
    out += "\n <WorkingSpace x='";
    appendInt(out, model.workingSpaceX);
    out += "' y='";
    appendInt(out, model.workingSpaceY);
    out += "' w='";
    appendInt(out, model.workingSpaceW);
    out += "' h='";
    appendInt(out, model.workingSpaceH);
    out += "'/>";
}

bool isDefaultColumn(const CfgModel &model, int i)
{
    return model.fi[i] != 'I' && model.fi[i] != 'F' && !model.illus[i] && model.monoto[i] == 'N'
        && model.minSizeModality[i] == -1.0 && model.penality[i] == 1.0 && !model.cm[i];
}

void appendVar(QByteArray &out, const CfgModel &model, int i)
{
    out += "<Var loc='";
    appendInt(out, model.desc->columnLoc(i));
    out += '\'';
    if (model.fi[i] == 'I' || model.fi[i] == 'F') {
        out += " fi='";
        out += model.fi[i];
        out += '\'';
    }
    if (model.illus[i])
        out += " illus='1'";
    if (model.monoto[i] != 'N') {
        out += " monoto='";
        appendCharacter(out, model.monoto[i]);
        out += '\'';
    }
    if (model.minSizeModality[i] != -1.0) {
        out += " minSizeModality='";
        appendStreamNumber(out, model.minSizeModality[i]);
        out += '\'';
    }
    if (model.penality[i] != 1.0) {
        out += " penality='";
        appendStreamNumber(out, model.penality[i]);
        out += '\'';
    }
    if (model.cm[i])
        out += " cm='1'";
    out += "/>";
}

void appendVars(QByteArray &out, const CfgModel &model)
{
    out += " <Vars>\n  ";
    const int n = model.columnCount();
    for (int i = 0; i < n; ++i) {
        if (!isDefaultColumn(model, i))
            appendVar(out, model, i);
    }
    out += "\n </Vars>\n";
}

void appendInputVars(QByteArray &out, const QVector<InputVar> &vars)
{
    for (const InputVar &var : vars)
        appendInputVarXml(out, var);
}

void appendLineSelection(QByteArray &out, const CfgModel &model)
{
    if (model.lineSelectionType == 'E') {
        const QString expression = model.lineSelectionExpression.trimmed();
        if (expression.isEmpty())
            return;
        out += lineSelectionComment;
        out += "<LineSelected type='E'>\n  <vars>\n";
        appendInputVars(out, model.lineSelectionVars);
        out += "  </vars>\n  <expression>";
        appendEscaped(out, expression);
        out += "</expression>\n</LineSelected>\n";
    } else if (model.lineSelectionType == 'F') {
        const QString path = model.lineSelectionFile.trimmed();
        if (path.isEmpty())
            return;
        out += lineSelectionComment;
        out += "<LineSelected type='F'>";
        appendEscaped(out, path);
        out += "</LineSelected>\n";
    } else {
        const QString path = model.lineSelectionSegmentFile.trimmed();
        if (path.isEmpty())
            return;
        out += lineSelectionComment;
        out += "<LineSelected type='S' segment='";
        // Every segment goes out active: an inactive one is lost on save,
        // as the engine has always received it.
        out += QByteArray(model.segmentActive.size(), 'A');
        out += "'>";
        appendEscaped(out, path);
        out += "</LineSelected>\n";
    }
}

void appendTarget(QByteArray &out, const CfgModel &model)
{
    out += targetComment;
    out += "<Target type='";
    appendCharacter(out, model.targetType);
    out += "'>";
    if (model.targetType == 'E') {
        out += "\n  <vars>\n";
        appendInputVars(out, model.targetVars);
        out += "  </vars>\n  <expression>";
        appendEscaped(out, model.targetExpression.trimmed());
        out += "</expression>\n";
    } else if (model.targetType == 'F') {
        out += "\n  ";
        appendEscaped(out, model.targetFile.trimmed());
        out += '\n';
    } else {
        const QString column = model.targetColumn.trimmed();
        if (!column.isEmpty())
            appendEscaped(out, model.desc->nameOfLabel(column));
    }
    out += "</Target>\n";
}

// Escaped, so that a name such as "R&D" reads back: the engine's own files
// hold these as plain text.
void appendElement(QByteArray &out, const char *name, const QString &text)
{
    out += " <";
    out += name;
    out += '>';
    appendEscaped(out, text);
    out += "</";
    out += name;
    out += ">\n";
}

// Everything behind the root's start tag.
void appendBody(QByteArray &out, const CfgModel &model)
{
    appendWorkingSpace(out, model);
    out += "\n <DescriptionFile>\n  ";
    appendEscaped(out, model.desc->fileName);
    out += "\n </DescriptionFile>\n";
    appendText(out, model.datasource);
    appendVars(out, model);
    appendLineSelection(out, model);
    appendTarget(out, model);
    if (!model.Weight.isEmpty())
        appendElement(out, "Weight", model.desc->nameOfLabel(model.Weight));
    if (!model.Treatment.isEmpty())
        appendElement(out, "Treatment", model.desc->nameOfLabel(model.Treatment));
    if (!model.PartioningModel.isEmpty())
        appendElement(out, "PartioningModel", model.PartioningModel);
    out += "</QUV_Config>";
}

void appendPrologue(QByteArray &out)
{
    out += "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
}

// A generous first guess, so that a large record is built without regrowth.
int expectedSize(const CfgModel &model)
{
    return 4096 + model.datasource.size() * 3 + model.columnCount() * 48;
}

} // namespace

QByteArray cfgFileBytes(const CfgModel &model)
{
    QByteArray out;
    out.reserve(expectedSize(model));
    appendPrologue(out);
    appendRootTag(out, model);
    appendBody(out, model);
    freeEscapeBuffer(&xmlEscapeBuffer);
    return out;
}

bool saveCfgFile(CfgModel &model, const WorkingSpace *windowPlace)
{
    return saveCfgFile(model, windowPlace, nullptr);
}

bool saveCfgFile(CfgModel &model, const WorkingSpace *windowPlace, FileWriteFailure *failure)
{
    QByteArray out;
    out.reserve(expectedSize(model));
    appendPrologue(out);
    appendRootTag(out, model);
    if (windowPlace) {
        model.workingSpaceW = windowPlace->w;
        model.workingSpaceH = windowPlace->h;
        model.workingSpaceX = windowPlace->x;
        model.workingSpaceY = windowPlace->y;
    }
    appendBody(out, model);
    freeEscapeBuffer(&xmlEscapeBuffer);

    // Our own write must not come back as a change on disk.
    watchFiles(model, QString(), QString());
    if (!replaceFileContents(model.cfgFileName, out, failure))
        return false;
    const QString descPath = descFilePath(model);
    watchFiles(model, model.cfgFileName, descPath);
    model.cfgLastModified = QFileInfo(model.cfgFileName).lastModified();
    model.descLastModified = QFileInfo(descPath).lastModified();
    return true;
}
