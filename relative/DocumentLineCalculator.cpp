#include "relative/DocumentLineCalculator.h"

#include "core/LineCalculation.h"

namespace morvane {

void DocumentLineCalculator::OpenLineForBatch(const std::string& path, SharedRegisters&) {
    document_.OpenLineForBatch(path);
}

void DocumentLineCalculator::CalculateFile(SharedRegisters& shared, UserPort& port) {
    morvane::CalculateFile(document_.calculationInput(), shared, results_.tables(), port,
                           results_.channel());
}

}  // namespace morvane
