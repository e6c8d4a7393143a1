// Owners of the automation resources the server handles: interface
// pointers, BSTRs and VARIANTs are released exactly once, by scope, so no
// method code calls Release, SysFreeString or VariantClear itself.
#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <utility>

#include "runtime/ustring.h"

namespace telvaro::com {

template <class T>
class ComPtr {
public:
    ComPtr() = default;
    // Takes over a reference the caller already owns.
    static ComPtr adopt(T* p) {
        ComPtr c;
        c.p_ = p;
        return c;
    }
    // Adds a reference of its own.
    static ComPtr share(T* p) {
        if (p) p->AddRef();
        return adopt(p);
    }
    ComPtr(const ComPtr& o) : p_(o.p_) {
        if (p_) p_->AddRef();
    }
    ComPtr(ComPtr&& o) noexcept : p_(std::exchange(o.p_, nullptr)) {}
    ComPtr& operator=(ComPtr o) noexcept {
        std::swap(p_, o.p_);
        return *this;
    }
    ~ComPtr() {
        if (p_) p_->Release();
    }

    T* get() const { return p_; }
    T* operator->() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }
    // The slot an out-parameter fills; any pointer held before is released.
    T** put() {
        *this = ComPtr();
        return &p_;
    }
    // Hands the reference to the caller.
    T* detach() { return std::exchange(p_, nullptr); }

private:
    T* p_ = nullptr;
};

class Bstr {
public:
    Bstr() = default;
    explicit Bstr(StringView s)
        : b_(SysAllocStringLen(reinterpret_cast<const OLECHAR*>(s.data()), static_cast<UINT>(s.size()))) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(b_); }

    BSTR get() const { return b_; }
    BSTR* put() {
        SysFreeString(std::exchange(b_, nullptr));
        return &b_;
    }
    BSTR detach() { return std::exchange(b_, nullptr); }

private:
    BSTR b_ = nullptr;
};

// The runtime's text of a BSTR (a null BSTR is the empty text).
inline String textOf(BSTR b) { return b ? String(reinterpret_cast<const char16_t*>(b), SysStringLen(b)) : String(); }

class UniqueVariant {
public:
    UniqueVariant() { VariantInit(&v_); }
    UniqueVariant(const UniqueVariant&) = delete;
    UniqueVariant& operator=(const UniqueVariant&) = delete;
    ~UniqueVariant() { VariantClear(&v_); }

    VARIANT* get() { return &v_; }
    const VARIANT* get() const { return &v_; }
    VARIANT detach() {
        VARIANT out = v_;
        VariantInit(&v_);
        return out;
    }

private:
    VARIANT v_;
};

}  // namespace telvaro::com
