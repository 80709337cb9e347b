// quva-xmlcat [--root NAME] FILE
// Parses FILE with the program's XML reader and writes the tree back,
// formatted, on standard output; the parse report goes to standard error,
// behind a sentence on what is wrong with a file that could not be read.

#include "xml/file_read.h"
#include "xml/xml_node.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const char usageLine[] = "usage: quva-xmlcat [--root NAME] FILE\n";

const char helpText[] =
    "\n"
    "Prints the tree that the editor's XML reader makes of FILE, written back\n"
    "with indentation, and \"status S line L column C\" of the reading on\n"
    "standard error. FILE is read as raw bytes, as segmentation models are;\n"
    ".CfgXML and .DescXML files are first decoded from their code page.\n"
    "\n"
    "  --root NAME   the element looked for as the root of the tree\n"
    "  -h, --help    this text\n"
    "  --version     the version\n"
    "\n"
    "Exit status: 0 the tree is not empty, 1 it is (or FILE could not be\n"
    "read), 2 the command line could not be used.\n";

int usage()
{
    fputs(usageLine, stderr);
    return 2;
}

// "--help" and "--version" as the only argument.
bool infoRequested(int argc, char **argv)
{
    if (argc != 2)
        return false;
    if (strcmp(argv[1], "--help") == 0 || strcmp(argv[1], "-h") == 0) {
        fputs(usageLine, stdout);
        fputs(helpText, stdout);
        return true;
    }
    if (strcmp(argv[1], "--version") == 0) {
        fputs("quva-xmlcat " QUVA_VERSION "\n", stdout);
        return true;
    }
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    if (infoRequested(argc, argv))
        return 0;
    const char *root = nullptr;
    const char *path = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (strcmp(argv[i], "--root") == 0) {
            if (root || i + 1 >= argc)
                return usage();
            root = argv[++i];
        } else if (path == nullptr && argv[i][0] != '-') {
            path = argv[i];
        } else {
            return usage();
        }
    }
    if (path == nullptr)
        return usage();
    XmlResult result;
    XmlFileFailure failure;
    const XmlNode node = parseXmlFile(path, root, &result, &failure);
    // A file that could not be read at all is told in words.
    if (result.status == XmlResult::fileNotFound || result.status == XmlResult::emptyFile) {
        const QByteArray why = describeXmlFileFailure(failure).toLocal8Bit();
        fprintf(stderr, "quva-xmlcat: %s\n", why.constData());
    }
    int size = 0;
    if (char *text = node.xmlText(true, &size)) {
        fwrite(text, 1, size, stdout);
        free(text);
    }
    fflush(stdout);
    fprintf(stderr, "status %d line %d column %d\n", result.status, result.line, result.column);
    return node.isEmpty() ? 1 : 0;
}
