// SPDX-License-Identifier: MIT
#include "tests/support/testmain.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

class TestMContainers : public QObject
{
    Q_OBJECT

private slots:
    void positionsBeyondTheEndAreRefused();
    void anArrayCanBeAppendedToItself();
    void copiesAreIndependent();
    void aLongerArrayHoldsEmptyStrings();
    void statusComparesBothWays();
    void everyStatusHasAText();
    void theNullObjectHasNoFunctions();
};

void TestMContainers::positionsBeyondTheEndAreRefused()
{
    MIntArray numbers(2, 7);
    QVERIFY(numbers.set(1, 2).error());
    QVERIFY(numbers.remove(2).error());
    QVERIFY(numbers.insert(1, 3).error());
    QVERIFY(!numbers.insert(9, 2).error());
    QCOMPARE(numbers.length(), 3u);
    QCOMPARE(numbers[2], 9);
}

void TestMContainers::anArrayCanBeAppendedToItself()
{
    const char *source[] = {"a", "b"};
    MStringArray strings(source, 2);
    strings += strings;
    QCOMPARE(strings.length(), 4u);
    QVERIFY(strings[3] == "b");
}

void TestMContainers::copiesAreIndependent()
{
    MCallbackIdArray ids;
    ids.append(5);
    MCallbackIdArray copy;
    copy.copy(ids);
    ids.clear();
    QCOMPARE(copy.length(), 1u);
    QCOMPARE(copy[0], MCallbackId(5));
}

void TestMContainers::aLongerArrayHoldsEmptyStrings()
{
    MStringArray strings;
    strings.setLength(3);
    QCOMPARE(strings.length(), 3u);
    QVERIFY(strings[2] == "");
}

void TestMContainers::statusComparesBothWays()
{
    const MStatus status = MS::kFailure;
    QVERIFY(status == MS::kFailure);
    QVERIFY(MS::kFailure == status);
    QVERIFY(MS::kSuccess != status);
    QVERIFY(!status);
    QVERIFY(status.error());
    QVERIFY(MStatus() == MStatus(MS::kSuccess));
}

void TestMContainers::everyStatusHasAText()
{
    for (int code = MS::kSuccess; code <= MS::kEndOfFile; ++code) {
        const MString text = MStatus(static_cast<MStatus::MStatusCode>(code)).errorString();
        QVERIFY2(text.index('(') == 0 && text.index(':') > 0, text.asChar());
    }
}

void TestMContainers::theNullObjectHasNoFunctions()
{
    QVERIFY(MObject::kNullObj.isNull());
    QVERIFY(!MObject::kNullObj.hasFn(MFn::kPlugin));
    QVERIFY(MObject() == MObject::kNullObj);
}

CORVANE_TEST_MAIN(TestMContainers)
#include "tst_mcontainers.moc"
