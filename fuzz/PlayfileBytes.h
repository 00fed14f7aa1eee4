// A playfile as the bytes of its file.
#pragma once

#include "platform/memory/KeptBytes.h"
#include "playfile/PlayfileFormat.h"

#include <string>

namespace qrtVistrelClasses4 {

inline std::string BytesOf(const OneBasedArray<FrameRecord>& frames) {
    KeptBytes bytes;
    QuotedLineWriter out(bytes);
    WriteFrameCount(out, frames.upperBound());
    for (const FrameRecord& frame : frames)
        WriteFrame(out, frame);
    out.finish();
    return bytes.text;
}

} // namespace qrtVistrelClasses4
