// Measures late-bound calls of the registered server against calls of the system's own objects, and prints
// how they compare.
#include "automation/Module.h"
#include "automation/Values.h"

#include <initguid.h>

#include <qrtVistrelClasses4.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>

namespace qrtVistrelClasses4::bench {
namespace {

void require(HRESULT done, const char* what) {
    if (FAILED(done))
        throw std::runtime_error(std::string(what) + " failed");
}

DISPID numberOf(IDispatch* object, const wchar_t* name) {
    DISPID number = 0;
    auto names = const_cast<LPOLESTR>(name);
    require(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &number), "finding a member");
    return number;
}

LONG read(IDispatch* object, DISPID number) {
    DISPPARAMS none{};
    OwnedVariant value;
    require(object->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                           &none, &value, nullptr, nullptr),
            "reading a property");
    return V_VT(&value) == VT_I2 ? V_I2(&value) : V_I4(&value);
}

LONG read(IDispatch* object, const wchar_t* name) { return read(object, numberOf(object, name)); }

ComPtr<IDispatch> create(REFCLSID id) {
    ComPtr<IDispatch> object;
    require(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)), "creating an object");
    return object;
}

/// The system's own dispatch of calls to `object`.
ComPtr<IDispatch> systemDispatch(IDispatch* object) {
    ComPtr<_FrameInfoClass> members;
    ComPtr<ITypeInfo> type;
    ComPtr<IUnknown> made;
    ComPtr<IDispatch> dispatch;
    require(object->QueryInterface(IID_PPV_ARGS(&members)), "asking for the members");
    require(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), "describing an object");
    require(CreateStdDispatch(nullptr, members.Get(), type.Get(), &made), "making a dispatch");
    require(made.As(&dispatch), "asking for a dispatch");
    return dispatch;
}

/// Two jobs. The time of `measured`, divided by that of `other`, should be `aim` at the most.
struct Comparison {
    const char* subject;
    std::function<void()> measured;
    const char* against;
    std::function<void()> other;
    int calls; ///< Of a job in each turn.
    double must;
    double aim;
};

double secondsFor(const std::function<void()>& job, int calls) {
    const auto begin = std::chrono::steady_clock::now();
    for (int call = 0; call < calls; ++call)
        job();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// The jobs take turns. The shortest turn of each counts, because neighbours on the machine only lengthen
/// turns.
double ratioOf(const Comparison& comparison) {
    double measured = std::numeric_limits<double>::max(), other = measured;
    for (int turn = 0; turn < 41; ++turn) {
        measured = std::min(measured, secondsFor(comparison.measured, comparison.calls));
        other = std::min(other, secondsFor(comparison.other, comparison.calls));
    }
    return measured / other;
}

/// False if a ratio is above its must.
bool compare() {
    CLSID dictionaryId{};
    require(CLSIDFromProgID(L"Scripting.Dictionary", &dictionaryId), "finding the dictionary");
    const auto playfile = create(CLSID_FrameInfoClass), dictionary = create(dictionaryId);
    const auto dispatch = systemDispatch(playfile.Get());
    const DISPID number = numberOf(dispatch.Get(), L"TotalFrames");
    if (read(playfile.Get(), L"TOTALFRAMES") != read(dispatch.Get(), number))
        throw std::logic_error("The contestants read different properties");
    const Comparison comparisons[] = {
        {"property by name", [&] { read(playfile.Get(), L"TotalFrames"); }, "system's dispatch by number",
         [&] { read(dispatch.Get(), number); }, 2000, 3, 2},
        {"member number by name", [&] { numberOf(playfile.Get(), L"TotalFrames"); }, "dictionary",
         [&] { numberOf(dictionary.Get(), L"Count"); }, 2000, 2, 1},
        {"create, use, release", [&] { read(create(CLSID_FrameInfoClass).Get(), L"TotalFrames"); },
         "dictionary", [&] { read(create(dictionaryId).Get(), L"Count"); }, 20, 2, 1.5},
    };
    bool allMustsHold = true;
    std::printf("%-28s  %-29s %6s  %-9s  %s\n", "subject", "against", "ratio", "must", "aim");
    for (const Comparison& comparison : comparisons) {
        const double ratio = ratioOf(comparison);
        const auto answer = [&](double most) { return ratio <= most ? "yes" : "no"; };
        allMustsHold = allMustsHold && ratio <= comparison.must;
        std::printf("%-28s  %-29s %6.2f  %-4.1f %-4s  %-4.1f %s\n", comparison.subject, comparison.against,
                    ratio, comparison.must, answer(comparison.must), comparison.aim, answer(comparison.aim));
    }
    return allMustsHold;
}

} // namespace
} // namespace qrtVistrelClasses4::bench

int main() {
    CoInitialize(nullptr);
    int exitCode = 2;
    try {
        exitCode = qrtVistrelClasses4::bench::compare() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    CoUninitialize();
    return exitCode;
}
