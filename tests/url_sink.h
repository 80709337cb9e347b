#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>

// Receives what the program hands to the desktop to open, in place of the
// desktop: install it with QDesktopServices::setUrlHandler("file", &sink,
// "openUrl").
class UrlSink : public QObject
{
    Q_OBJECT
public slots:
    void openUrl(const QUrl &url) { urls << url; }

public:
    // The local paths of the URLs, in the order they came.
    QStringList paths() const
    {
        QStringList local;
        for (const QUrl &url : urls)
            local << url.toLocalFile();
        return local;
    }

    QList<QUrl> urls;
};
