#include "session/test_run.h"

namespace practice {

Integer row_of_position(const TestRun& run, int position) {
  return (run.question_order[position] - 1) * run.order_stride + run.order_base;
}

int percent_of(int right, int total) {
  if (total == 0) throw Fault::division_by_zero();
  return right * 100 / total;
}

}  // namespace practice
