#include "expr/input_var.h"

#include "text/text_convert.h"
#include "xml/xml_escape.h"
#include "xml/xml_node.h"

InputVar::InputVar(const QString &columnName, QChar metaType, double number)
    : column(columnName), label(makeVarName(columnName)), meta(metaType), value(number),
      isNumber(true)
{
}

InputVar::InputVar(const QString &columnName, QChar metaType, const QString &text)
    : column(columnName), label(makeVarName(columnName)), stringValue(text), meta(metaType),
      value(0.0), isNumber(false)
{
}

namespace {

QString utf8Text(const char *text) { return QString::fromUtf8(text); }

// A number written by appendInputVarXml; what is no number reads as 0, like
// a missing value.
double readNumber(const char *text)
{
    if (!text || !*text)
        return 0.0;
    const QString s = utf8Text(text);
    bool ok = false;
    const double number = parseNumberStrict(s.utf16(), &ok, s.size());
    return ok ? number : 0.0;
}

} // namespace

InputVar::InputVar(const XmlNode &element)
{
    const QString columnName = utf8Text(chk_str(element.attribute("column"), ""));
    column = QStringList(columnName);

    const char *labelText = element.attribute("label");
    label = (labelText && *labelText) ? utf8Text(labelText) : columnName;

    if (const char *label2Text = element.attribute("label2"))
        label2 = utf8Text(label2Text);

    isNumber = chk_atoi(element.attribute("isNumber"), 1) != 0;

    const QString metaText = utf8Text(element.attribute("meta"));
    meta = metaText.isEmpty() ? QLatin1Char('U') : metaText.at(0);

    const char *valueText = element.attribute("value");
    if (isNumber)
        value = readNumber(valueText);
    else
        stringValue = utf8Text(chk_str(valueText, ""));
}

QString makeVarName(const QString &name)
{
    QString result = name.trimmed();
    for (QChar &c : result) {
        const ushort u = c.unicode();
        const bool legal = (u >= '0' && u <= '9') || (u >= 'a' && u <= 'z')
                           || (u >= 'A' && u <= 'Z') || u == '_';
        if (!legal)
            c = QLatin1Char('_');
    }
    if (!result.isEmpty() && result.at(0).unicode() >= '0' && result.at(0).unicode() <= '9')
        result.prepend(QLatin1Char('_'));
    return result;
}

namespace {

void appendEscaped(QByteArray &out, const QString &text)
{
    out.append(xmlEscape(&xmlEscapeBuffer, text.toUtf8().constData()));
}

} // namespace

void appendInputVarXml(QByteArray &out, const InputVar &var)
{
    const QString columnName = var.column.value(0);
    out.append("    <InputVar column='");
    appendEscaped(out, columnName);
    if (var.label != columnName) {
        out.append("' label='");
        appendEscaped(out, var.label);
    }
    if (!var.label2.isEmpty()) {
        out.append("' label2='");
        appendEscaped(out, var.label2);
    }
    if (!var.isNumber)
        out.append("' isNumber='0");
    // Escaped like the rest: the letter a file gave may be a quote.
    out.append("' meta='");
    appendEscaped(out, QString(var.meta));
    out.append("' value='");
    if (var.isNumber)
        appendStreamNumber(out, var.value);
    else
        appendEscaped(out, var.stringValue);
    out.append("'/>\n");
}
