#pragma once

#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QTextDocument>
#include <string>
#include <vector>

#include "screen/WebFetch.h"

namespace zelvo::qt {

/// What came from an address, ready to be shown.
struct PageContent {
    std::string html;
    QUrl base;       ///< that its addresses stand on
    QImage picture;  ///< one that is all of the page
    QUrl forward;    ///< where it sends its readers at once; empty for nowhere
};

/// A page of the web as far as a text document can show it. It asks nobody for anything: a file of this
/// machine is never read for it, whatever the page names.
class PageDocument : public QTextDocument {
    Q_OBJECT

public:
    using QTextDocument::QTextDocument;

    /// Reads an HTML page, a text or a picture; for what is none of them, or has nothing that could be shown,
    /// a hint. Can be called on any thread.
    static PageContent contentOf(const screen::WebContent& content);
    /// Shows it. Gives the addresses of the pictures that are still wanted, absolute, each once.
    std::vector<QUrl> showContent(const PageContent& content);
    /// Shows a sentence in place of a page.
    void showSentence(const QString& sentence);
    /// A picture that was wanted. The page takes it as far as it has room for pictures.
    void addPicture(const QUrl& address, const QImage& picture);

    /// The picture in these bytes, shrunk where it is larger than any page; none when they hold no picture.
    /// Can be called on any thread.
    static QImage pictureIn(const std::string& bytes);

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    std::vector<QUrl> picturesWanted();
    void startAnew();

    qsizetype pictureBytes_ = 0;
};

}  // namespace zelvo::qt
