// What programs of hosts need to use the server: texts, and a line of output for each thing that is tried.
// They include nothing of this project but the header of the interfaces.
#pragma once

#include <windows.h>

#include <cstdlib>
#include <iostream>
#include <string>

/// A text that the server takes, or the place for one that it returns.
class Text {
public:
    Text(const wchar_t* text = L"") : text_(SysAllocString(text)) {}
    ~Text() { SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    operator BSTR() const { return text_; }
    BSTR* operator&() {
        SysFreeString(text_);
        text_ = nullptr;
        return &text_;
    }
    bool operator==(const wchar_t* other) const { return text_ && std::wstring(text_) == other; }

private:
    BSTR text_;
};

/// Prints the result of a test.
inline void Check(const char* sentence, bool isTrue) {
    std::cout << (isTrue ? "ok " : "FAILED ") << sentence << std::endl;
}

/// A new object of a registered class. A host cannot go on without it.
inline void* NewObject(REFCLSID id, REFIID interfaceId) {
    void* object = nullptr;
    if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &object))) {
        Check("the server makes an object", false);
        std::exit(1);
    }
    return object;
}
