// A clean removes exactly what the scan listed and the user left ticked:
// random trees, real scans, random selections, folders swapped for links
// after the scan, cleans in process and through the real helper.

#include "CleanTestSupport.h"
#include "SafetyProperty.h"

using namespace CleanTest;

class TestSafetyProperty : public QObject {
    Q_OBJECT

private slots:
    // What the process may not remove goes to a helper the service starts
    // directly, with this process's rights.
    void initTestCase() { useHelper(QString()); }
    void cleanupTestCase() { XPCUtil::shutdown(); }

    void nothingBeyondTheSelection()
    {
        const int cases = SafetyProperty::rounds(1, 200, {});
        qInfo("%d cases", cases);
    }
};

QTEST_GUILESS_MAIN(TestSafetyProperty)
#include "test_safety_property.moc"
