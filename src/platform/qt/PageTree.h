#pragma once

#include <gumbo.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::qt {

/// A web page's HTML as a tree, read as browsers read it. A page that is made to be read for ever, or to fill
/// the memory, has no tree. Can be made on any thread.
class PageTree {
public:
    explicit PageTree(std::string_view html);
    ~PageTree();
    PageTree(const PageTree&) = delete;
    PageTree& operator=(const PageTree&) = delete;

    /// The html element; nullptr for a page that can't be read.
    const GumboNode* root() const { return root_; }
    /// The first element of this kind that stands directly in another.
    static const GumboNode* child(const GumboNode& element, GumboTag tag);
    /// An attribute of an element, "" for none.
    static std::string_view attribute(const GumboNode& element, const char* name);

private:
    class Memory;
    void read();

    std::string html_;  ///< the tree points into it
    std::unique_ptr<Memory> memory_;
    const GumboNode* root_ = nullptr;
};

}  // namespace zelvo::qt
