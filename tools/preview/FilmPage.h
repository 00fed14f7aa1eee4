// HTML pages that play films.
#pragma once

#include "platform/FileSystem.h"
#include "tools/preview/FilmCut.h"
#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/OneBasedArray.h>
#include <qrtVistrelClasses4/PlayTime.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/Raster.h>
#include <qrtVistrelClasses4/Validation.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// What a page shows besides the pictures.
struct FilmPageFacts {
    std::string title; ///< In UTF-8.
    DotSize size;
    double seconds = 0;
    bool isPlain = false; ///< Whether dots are plain at first, and no LEDs.
    std::vector<FilmCut::Step> steps;
    std::vector<std::int32_t> frames;   ///< Numbers of those in the list.
    const Playfile* playfile = nullptr; ///< Outlives the page.
    const PlayTime* playTime = nullptr; ///< The same.
    std::vector<Finding> findings;      ///< Of all frames of the playfile.
    CommandTable commands;              ///< Their previews replace their codes in texts.
};

/// Writes a page while its film is drawn. The page has all that it needs in itself. Whatever the playfile
/// has in its texts, they stay texts.
class FilmPage {
public:
    /// Browsers have all changes of the pictures in memory, and phones have little of it.
    static constexpr std::size_t kMostBytesOfPictures = 64U << 20;

    /// Writes what comes before the pictures, which may be of `mostBytes` before they are compressed. `file`
    /// must outlive this object. All functions throw the errors of the file, and error 7 without memory.
    FilmPage(const FilmPageFacts& facts, ByteSink& file, std::size_t mostBytes = kMostBytesOfPictures);
    ~FilmPage();
    FilmPage(const FilmPage&) = delete;
    FilmPage& operator=(const FilmPage&) = delete;

    /// Adds the picture that is shown from a moment on. Returns false if it would be too much for the page,
    /// which cannot be finished then.
    bool add(double seconds, const Raster& dots);
    void finish();

private:
    class Text;
    std::unique_ptr<Text> text_;
};

} // namespace qrtVistrelClasses4
