#include "platform/qt/PageDocument.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <QtGui/QPixmap>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <algorithm>
#include <array>
#include <set>

#include "platform/qt/PageHtml.h"
#include "platform/qt/Texts.h"

namespace zelvo::qt {

namespace {

constexpr int widestPicture = 4000, highestPicture = 20'000;
constexpr qsizetype roomForPictures = qsizetype{256} * 1024 * 1024;
constexpr std::size_t mostPictures = 100, mostEmbedded = 10;
constexpr qreal pageMargin = 12;

bool isWeb(const QUrl& address) {
    return address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https");
}

bool isPlainFormat(const QByteArray& format) {
    constexpr std::array<const char*, 6> plain = {"png", "jpeg", "gif", "bmp", "webp", "ico"};
    return std::any_of(plain.begin(), plain.end(), [&](const char* name) { return format == name; });
}

/// The picture that a page brings within itself: "data:image/png;base64,…".
QImage embeddedPicture(const QString& name) {
    const qsizetype comma = name.indexOf(QLatin1Char(','));
    if (comma < 0 || !name.left(comma).endsWith(QLatin1String(";base64"), Qt::CaseInsensitive)) return {};
    return PageDocument::pictureIn(QByteArray::fromBase64(name.mid(comma + 1).toLatin1()).toStdString());
}

}  // namespace

void PageDocument::startAnew() {
    setUndoRedoEnabled(false);
    clear();
    pictureBytes_ = 0;
    setDocumentMargin(pageMargin);
}

void PageDocument::showSentence(const QString& sentence) {
    startAnew();
    setPlainText(sentence);
}

PageContent PageDocument::contentOf(const screen::WebContent& content) {
    const QUrl address(qtText(content.address));
    PageContent page{{}, address, {}, {}};
    bool shown = false;
    if (content.type.starts_with("image/")) {
        page.html = R"(<img src="picture:">)";
        page.picture = pictureIn(content.body);
        shown = true;
    } else if (content.type.empty() || content.type == "text/html" ||
               content.type == "application/xhtml+xml") {
        const ReadablePage read = readablePage(content.body);
        page.html = read.html;
        if (const QUrl base = address.resolved(QUrl(qtText(read.base))); isWeb(base)) page.base = base;
        // A page with something to read is read; its readers are not sent away under their eyes.
        if (!read.shown && !read.forward.empty())
            page.forward = page.base.resolved(QUrl(qtText(read.forward)));
        shown = read.shown;
    } else if (content.type.starts_with("text/")) {
        page.html = readableText(content.body).html;
        shown = true;
    }
    if (!shown) page.html = "이 창에서 볼 수 없는 형식의 공지사항입니다. 인터넷 브라우저로 여십시오.";
    return page;
}

std::vector<QUrl> PageDocument::showContent(const PageContent& content) {
    startAnew();
    setBaseUrl(content.base);
    setHtml(qtText(content.html));
    if (!content.picture.isNull()) addPicture(QUrl(QStringLiteral("picture:")), content.picture);
    return picturesWanted();
}

std::vector<QUrl> PageDocument::picturesWanted() {
    std::vector<QUrl> wanted;
    std::set<QString> embedded;  // taken in here, where the window waits: few, and each once
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextCharFormat format = at.fragment().charFormat();
            if (!format.isImageFormat() || wanted.size() >= mostPictures) continue;
            const QString name = format.toImageFormat().name();
            const QUrl address = baseUrl().resolved(QUrl(name));
            if (address.scheme() == QLatin1String("data") && embedded.size() < mostEmbedded &&
                embedded.insert(name).second) {
                addPicture(address, embeddedPicture(name));
            }
            if (!isWeb(address) || std::find(wanted.begin(), wanted.end(), address) != wanted.end()) continue;
            wanted.push_back(address);
        }
    }
    return wanted;
}

void PageDocument::addPicture(const QUrl& address, const QImage& picture) {
    if (picture.isNull() || pictureBytes_ + picture.sizeInBytes() > roomForPictures) return;
    pictureBytes_ += picture.sizeInBytes();
    addResource(ImageResource, address, QPixmap::fromImage(picture));
    markContentsDirty(0, characterCount());
}

QImage PageDocument::pictureIn(const std::string& bytes) {
    QByteArray raw = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&raw);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    // Others (a drawing, say) can name files of this machine, which their readers would open.
    if (!isPlainFormat(reader.format())) return {};
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > widestPicture || size.height() > highestPicture)
        reader.setScaledSize(size.scaled(widestPicture, highestPicture, Qt::KeepAspectRatio));
    return reader.read();
}

/// What has not come stands as an invisible dot: for a picture that is not there a document would look among
/// this machine's files.
QVariant PageDocument::loadResource(int type, const QUrl&) {
    if (type != ImageResource) return QByteArray();
    QImage dot(1, 1, QImage::Format_ARGB32_Premultiplied);
    dot.fill(Qt::transparent);
    return dot;
}

}  // namespace zelvo::qt
