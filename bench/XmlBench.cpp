// The XML export, against a library that builds a document and saves it, and the least that writing can cost.
#include "bench/CarefulPlayfile.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "bench/WholeFile.h"
#include "frame/QuotedLines.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <pugixml.hpp>
#include <set>
#include <string_view>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfPugixml = 0.3;
constexpr double kMostOfLimit = 3;
constexpr double kMostOfCareful = 1.2;

struct Element {
    const char* name;
    std::optional<std::string_view> value; ///< Empty if it encloses the elements after it.

    bool operator==(const Element& other) const {
        return std::string_view(name) == other.name && value == other.value;
    }
};

/// The elements of an export, ready for another library to take.
struct Export {
    WholeFile file; ///< Holds the values.
    std::set<std::string> names;
    std::vector<Element> elements;
};

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find("\r\n");
    Require(end != text.npos, "a line of the export has no end");
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 2);
    return line;
}
/// Without its first and its last character.
std::string_view inner(std::string_view text) { return text.substr(1, text.size() - 2); }

Export readExport(const std::string& path) {
    Export read{ReadWholeFile(path), {}, {}};
    std::replace(read.file.bytes.get(), read.file.bytes.get() + read.file.size, kStoredQuote, '"');
    for (std::string_view rest = read.file.text(); !rest.empty();) {
        const std::string_view tag = takeLine(rest);
        if (tag.starts_with("</"))
            continue;
        Element element{read.names.emplace(inner(tag)).first->c_str(), {}};
        if (rest.starts_with('"'))
            element.value = inner(takeLine(rest));
        read.elements.push_back(element);
    }
    return read;
}

using Document = pugi::xml_document;

/// Names end in a NUL and values come with their lengths, as the peer likes them best, and numbers are texts
/// already.
std::unique_ptr<Document> saveWithPugixml(const std::vector<Element>& elements, const std::string& path) {
    auto document = std::make_unique<Document>();
    pugi::xml_node enclosing;
    for (const Element& element : elements) {
        if (element.value)
            enclosing.append_child(element.name).text().set(element.value->data(), element.value->size());
        else
            enclosing = document->append_child(element.name);
    }
    std::remove(path.c_str());
    Require(document->save_file(path.c_str(), "", pugi::format_raw | pugi::format_no_declaration),
            "cannot save " + path);
    return document;
}

/// What pugixml reads; `document` holds names and values.
std::vector<Element> readWithPugixml(Document& document, const std::string& path) {
    constexpr unsigned options = pugi::parse_default | pugi::parse_fragment | pugi::parse_ws_pcdata_single;
    Require(document.load_file(path.c_str(), options), "cannot read " + path);
    std::vector<Element> elements;
    for (const pugi::xml_node& enclosing : document) {
        elements.push_back({enclosing.name(), {}});
        for (const pugi::xml_node& element : enclosing)
            elements.push_back({element.name(), element.child_value()});
    }
    return elements;
}

void exportXml(FrameInfoClass& frames, const std::string& name) {
    Require(frames.WriteXMLToDisk(name), "cannot export " + name);
}

/// Playfiles of one size, exported by either contestant.
struct Sample {
    PlayfileSize size;
    std::string name; ///< The name for the library, which adds its ending.
    std::string own;
    std::string peer;
};

/// Makes the files. What the peer has saved must hold the elements of the export, all of them in its order.
Sample makeSample(const BenchFolder& folder, PlayfileSize size) {
    const std::string name = folder.file(size.name());
    Sample sample{size, name, name + ".xml", folder.file(size.name() + ".peer.xml")};
    const auto playfile = MakePlayfile(size, folder);
    ExportCarefully(playfile->Value().frames, sample.own);
    const WholeFile careful = ReadWholeFile(sample.own);
    exportXml(*playfile, name);
    const Export exported = readExport(sample.own);
    const auto frames = static_cast<std::size_t>(size.frames);
    const auto lines = frames * static_cast<std::size_t>(size.lines);
    Require(exported.elements.size() == frames * (1 + 18) + lines * (1 + 9),
            "the export holds other elements");
    Require(ReadWholeFile(sample.own).text() == careful.text(), "careful code makes another export");
    saveWithPugixml(exported.elements, sample.peer);
    Document document;
    Require(readWithPugixml(document, sample.peer) == exported.elements, "pugixml saved other elements");
    return sample;
}

void registerContestants(const Sample& sample, const BenchFolder& folder) {
    RegisterWork("XML/" + sample.size.name(), [sample, &folder](benchmark::State& state) {
        const auto frames = MakePlayfile(sample.size, folder);
        TimeWork(state, [&] { exportXml(*frames, sample.name); });
    });
    RegisterWork("XML/pugixml/" + sample.size.name(), [sample](benchmark::State& state) {
        const Export exported = readExport(sample.own);
        TimeMaking(state, [&] { return saveWithPugixml(exported.elements, sample.peer); });
    });
    RegisterWork("XML/careful/" + sample.size.name(), [sample, &folder](benchmark::State& state) {
        const auto frames = MakePlayfile(sample.size, folder);
        TimeWork(state, [&] { ExportCarefully(frames->Value().frames, sample.own); });
    });
    for (const auto& [name, write] :
         {std::pair("XML/limit/", &WriteNewFile), std::pair("XML/durable/", &WriteDurably)})
        RegisterWork(name + sample.size.name(), [sample, write](benchmark::State& state) {
            const WholeFile finished = ReadWholeFile(sample.own);
            TimeWork(state, [&] { write(sample.own, finished.text()); });
        });
}

} // namespace

std::vector<Ratio> XmlSubject(const BenchFolder& folder) {
    std::vector<Ratio> ratios;
    for (const PlayfileSize size : {kUsual, kLarge}) {
        registerContestants(makeSample(folder, size), folder);
        const std::string name = size.name();
        const auto add = [&](const std::string& against, Bound bound, double most) {
            ratios.push_back({"XML " + name, "XML/" + name, "XML/" + against + "/" + name, bound, most});
        };
        add("pugixml", Bound::must, kMostOfPugixml);
        add("limit", Bound::aim, kMostOfLimit);
        add("durable", Bound::aim, kMostOfLimit);
        add("careful", Bound::aim, kMostOfCareful);
    }
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
