#include <Utility/text/normalization_table.h>

#include <Utility/normalizers.h>

#include <algorithm>
#include <iterator>

namespace Torvo {

const NormalizationTable* FindNormalizationTable(uint16 code) {
    const auto* const found = std::find_if(std::begin(normalizationTables), std::end(normalizationTables),
                                           [code](const NormalizationTable& table) { return table.code == code; });
    return found != std::end(normalizationTables) ? found : nullptr;
}

bool FindConversionTableCode(uint16 code) {
    return FindNormalizationTable(code) != nullptr;
}

}  // namespace Torvo
