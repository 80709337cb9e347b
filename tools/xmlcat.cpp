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

int usage()
{
    fputs("usage: quva-xmlcat [--root NAME] FILE\n", stderr);
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
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
