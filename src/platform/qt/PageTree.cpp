#include "platform/qt/PageTree.h"

#include <algorithm>
#include <chrono>
#include <csetjmp>
#include <ctime>

namespace zelvo::qt {

namespace {

using std::chrono::nanoseconds, std::chrono::seconds;

constexpr std::size_t mostMemory = std::size_t{128} * 1024 * 1024, pieceSize = std::size_t{1024} * 1024;
constexpr seconds mostTime{2};
/// What stands behind is not read: of so many tags no window shows more than a part.
constexpr std::size_t mostTags = 100'000;

/// What this thread has worked: a machine that others load makes no page a bad one.
nanoseconds worked() {
    ::timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

std::string_view beginning(std::string_view html) {
    std::size_t tags = 0;
    for (std::size_t at = 0; at < html.size(); ++at) {
        if (html[at] == '<' && ++tags > mostTags) return html.substr(0, at);
    }
    return html;
}

bool isDigit(char byte, bool hexadecimal) {
    return (byte >= '0' && byte <= '9') ||
           (hexadecimal && ((byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F')));
}

/// The parser reads a character's number ("&#44032;") beyond what an int holds, and makes bytes of it that
/// are no character. A number so long stands for none: it becomes that of the mark for it.
std::string withBoundedNumbers(std::string_view html) {
    constexpr std::size_t mostDigits = 7;
    std::string bounded;
    bounded.reserve(html.size());
    std::size_t written = 0;
    for (auto found = html.find("&#"); found != std::string_view::npos; found = html.find("&#", found + 2)) {
        std::size_t start = found + 2;
        const bool hexadecimal = start < html.size() && (html[start] == 'x' || html[start] == 'X');
        if (hexadecimal) ++start;
        while (start < html.size() && html[start] == '0') ++start;
        std::size_t end = start;
        while (end < html.size() && isDigit(html[end], hexadecimal)) ++end;
        if (end - start <= mostDigits) continue;
        bounded += html.substr(written, found - written);
        bounded += "&#xFFFD";
        written = end;
    }
    return bounded.append(html.substr(written));
}

}  // namespace

/// Where the parser's tree lives, all of it until the end. The rules by which browsers mend a page let a
/// small one grow beyond all bounds; the parser itself knows none, so it is left here, from within its own
/// request for memory. No object of ours lives between here and there.
class PageTree::Memory {
public:
    std::jmp_buf givenUp;

    GumboOptions options() {
        GumboOptions options = kGumboDefaultOptions;
        options.allocator = [](void* memory, std::size_t bytes) {
            return static_cast<Memory*>(memory)->take(bytes);
        };
        options.deallocator = [](void*, void*) {};
        options.userdata = this;
        options.max_errors = 0;
        return options;
    }

private:
    void* take(std::size_t bytes) {
        constexpr std::size_t alignment = alignof(std::max_align_t), turns = 64;
        const std::size_t wanted = (bytes + alignment - 1) / alignment * alignment;
        const bool late = ++requests_ % turns == 0 && worked() > end_;
        if (wanted > mostMemory - taken_ || late) std::longjmp(givenUp, 1);
        taken_ += wanted;
        if (wanted > left_) {
            left_ = std::max(wanted, pieceSize);
            pieces_.push_back(std::make_unique_for_overwrite<std::byte[]>(left_));
            next_ = pieces_.back().get();
        }
        void* const given = next_;
        next_ += wanted;
        left_ -= wanted;
        return given;
    }

    std::vector<std::unique_ptr<std::byte[]>> pieces_;
    std::byte* next_ = nullptr;
    std::size_t left_ = 0, taken_ = 0, requests_ = 0;
    nanoseconds end_ = worked() + mostTime;
};

PageTree::PageTree(std::string_view html)
    : html_(withBoundedNumbers(beginning(html))), memory_(std::make_unique<Memory>()) {
    read();
}

PageTree::~PageTree() = default;

void PageTree::read() {
    const GumboOptions options = memory_->options();
    if (setjmp(memory_->givenUp) != 0) return;
    root_ = gumbo_parse_with_options(&options, html_.data(), html_.size())->root;
}

const GumboNode* PageTree::child(const GumboNode& element, GumboTag tag) {
    const GumboVector& children = element.v.element.children;
    for (unsigned i = 0; i < children.length; ++i) {
        const auto* const node = static_cast<const GumboNode*>(children.data[i]);
        if (node->type == GUMBO_NODE_ELEMENT && node->v.element.tag == tag) return node;
    }
    return nullptr;
}

std::string_view PageTree::attribute(const GumboNode& element, const char* name) {
    const GumboAttribute* const found = gumbo_get_attribute(&element.v.element.attributes, name);
    return found ? found->value : std::string_view();
}

}  // namespace zelvo::qt
