// Prints the table of encoders as Markdown, which terminals and documents both show.
#include "codecs_command.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "media/encoder.h"
#include "media/output_format.h"

namespace brushworks::tools {
namespace {

using media::EncoderRow;
using Row = std::vector<std::string>;

const char* scaleName(media::QualityScale scale) {
    switch (scale) {
        case media::QualityScale::Crf:
            return "crf";
        case media::QualityScale::Quantizer:
            return "quantizer";
        case media::QualityScale::Percent:
            return "quality";
        default:
            return "";
    }
}

std::string qualityWords(const EncoderRow& row) {
    const media::Quality& quality = row.quality;
    if (quality.scale == media::QualityScale::None) return "";
    const auto own = [&](int of100) {
        return std::to_string(std::lround(media::ownQuality(row, of100)));
    };
    const std::string ends =
        std::string(scaleName(quality.scale)) + " " + own(0) + " to " + own(100);
    if (quality.scale == media::QualityScale::Percent) return ends + "; usually lossless";
    return ends + "; usually " + std::to_string(quality.usual) + ": " + own(quality.usual);
}

std::string losslessWords(const EncoderRow& row) {
    if (row.lossless == nullptr) return "no";
    return *row.lossless == '\0' ? "always" : "--lossless";
}

/// The extensions of all files that can hold the encoder, each type's first one.
std::string typeWords(const EncoderRow& row) {
    std::string types;
    for (const media::OutputFormat& format : media::outputFormats()) {
        const std::vector<const EncoderRow*> fitting = media::encodersFor(format);
        if (std::find(fitting.begin(), fitting.end(), &row) == fitting.end()) continue;
        types.append(types.empty() ? "." : " .").append(format.extension);
    }
    return types.empty() ? "none in this build" : types;
}

}  // namespace

void listCodecs(std::ostream& out) {
    std::vector<Row> rows = {{"encoder", "also", "quality 0 to 100", "lossless", "files"},
                             {"---", "---", "---", "---", "---"}};
    for (const EncoderRow& row : media::encoderRows()) {
        rows.push_back(
            {row.name, row.common, qualityWords(row), losslessWords(row), typeWords(row)});
    }
    std::vector<std::size_t> widths(rows[0].size());
    for (const Row& row : rows) {
        // The last column has no other behind it.
        for (std::size_t i = 0; i + 1 < row.size(); ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    for (const Row& row : rows) {
        out << '|';
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::size_t fill = widths[i] > row[i].size() ? widths[i] - row[i].size() : 0;
            out << ' ' << row[i] << std::string(fill, ' ') << " |";
        }
        out << '\n';
    }
}

}  // namespace brushworks::tools
