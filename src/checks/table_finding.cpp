#include "checks/table_finding.hpp"

#include <array>

namespace {

constexpr auto table_infos = std::to_array<FindingInfo>({
    {FindingKind::no_header, "no-header", Severity::error},
    {FindingKind::repeated_column, "repeated-column", Severity::error},
    {FindingKind::unused_column, "unused-column", Severity::warning},
    {FindingKind::unused_cell, "unused-cell", Severity::warning},
    {FindingKind::bad_quotes, "bad-quotes", Severity::error},
    {FindingKind::bad_encoding, "bad-encoding", Severity::error},
    {FindingKind::unknown_kind, "unknown-kind", Severity::error},
    {FindingKind::bad_day, "bad-day", Severity::error},
    {FindingKind::ambiguous, "ambiguous", Severity::error},
    {FindingKind::bad_duration, "bad-duration", Severity::error},
    {FindingKind::no_end, "no-end", Severity::error},
    {FindingKind::line_break, "line-break", Severity::error},
    {FindingKind::too_many_items, "too-many-items", Severity::error},
    {FindingKind::other_value, "other-value", Severity::error},
    {FindingKind::kept_sidecar, "kept-sidecar", Severity::warning},
});

}  // namespace

std::span<const FindingInfo> table_finding_infos() {
  return table_infos;
}
