#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <new>
#include <string>
#include <utility>

namespace automation {

/// Holds a reference to somebody's object.
template <class Type>
class Ref {
public:
    Ref() = default;
    explicit Ref(Type* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    Ref(const Ref& other) : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_) object_->Release();
    }

    Type* operator->() const { return object_; }
    Type* get() const { return object_; }
    /// Hands the reference on.
    Type* release() { return std::exchange(object_, nullptr); }
    explicit operator bool() const { return object_ != nullptr; }
    /// Where a call puts the object that it hands out.
    void** put() { return reinterpret_cast<void**>(&object_); }

private:
    Type* object_ = nullptr;
};

/// A text as automation carries it.
class Text {
public:
    explicit Text(const char* utf8);
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { ::SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR release() { return std::exchange(text_, nullptr); }

private:
    BSTR text_;
};

/// The same in UTF-8. A character of no value, which would end the text early, is left out.
std::string utf8Of(BSTR text);

struct CloseHandle {
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandle>;

/// What a chart gets of work that may want memory: no exception goes over to it.
template <class Work>
HRESULT withinMemory(const Work& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

/// This program's own file.
std::wstring ownPath();

}  // namespace automation
