#include "common.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>

class TestQml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bindsToPool()
    {
        SProgressPool pool(2);
        QQmlEngine engine;
        engine.rootContext()->setContextProperty(string("pool"), &pool);
        QQmlComponent component(&engine);
        component.setData(R"(import QtQml
            QtObject {
                property int percent: pool.progress
                property bool stopped: pool.aborted
                property int signalled: 0
                property Connections connections: Connections {
                    target: pool
                    function onReportProgress(value) { signalled = value }
                }
                function restart() { pool.reset() }
                function finish() { pool.progress = 100 }
            })",
            QUrl());
        const std::unique_ptr<QObject> view(component.create());
        QVERIFY2(view, qPrintable(component.errorString()));
        pool.first()->setProgress(50);
        QCOMPARE(view->property("percent"), 25);
        QCOMPARE(view->property("signalled"), 25);
        QMetaObject::invokeMethod(view.get(), "finish");
        QCOMPARE(view->property("percent"), 100);
        pool.last()->abort();
        QCOMPARE(view->property("stopped"), true);
        QMetaObject::invokeMethod(view.get(), "restart");
        QCOMPARE(view->property("percent"), 0);
        QVERIFY(!pool.isAborted());
    }
};

QTEST_GUILESS_MAIN(TestQml)
#include "tst_qml.moc"
