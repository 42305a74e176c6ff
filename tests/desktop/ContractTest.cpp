// What every toolkit must do, done by Qt.
#include "tests/desktop/support/QtShownBackend.h"
#include "tests/support/BackendContract.h"

INSTANTIATE_TEST_SUITE_P(Qt, BackendContract, testing::Values(BackendMaker([] {
                           return std::make_unique<desktop::test::QtShownBackend>();
                         })));
