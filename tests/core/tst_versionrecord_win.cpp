#include <tavex/SConvert>
#include <tavex/TavexInfo>

#include <QTest>

#include <windows.h>

using namespace Quorvex;

class TestVersionRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysWhatTheLibrarySays()
    {
        std::array<std::byte, 4096> record;
        QVERIFY(GetFileVersionInfoW(L"tavex.dll", 0, DWORD(record.size()), record.data()));
        void *value = nullptr;
        UINT length = 0;
        QVERIFY(VerQueryValueW(record.data(), L"\\", &value, &length));
        const auto *const numbers = static_cast<const VS_FIXEDFILEINFO *>(value);
        const SVersion version = TavexInfo::version();
        QCOMPARE(int(numbers->dwFileVersionMS), version.major() << 16 | version.minor());
        QCOMPARE(int(numbers->dwFileVersionLS), version.patch() << 16);

        const QString versionText = SConvert::toString(version, QLocale::c());
        for (const auto &[name, text] : {std::pair(L"CompanyName", TavexInfo::company()),
                 {L"FileDescription", TavexInfo::description()},
                 {L"LegalCopyright", TavexInfo::copyright()},
                 {L"InternalName", TavexInfo::moduleName()}, {L"FileVersion", versionText},
                 {L"ProductVersion", versionText}}) {
            const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
            QVERIFY(VerQueryValueW(record.data(), path.c_str(), &value, &length));
            QCOMPARE(QString::fromWCharArray(static_cast<wchar_t *>(value)), text);
        }
    }
};

QTEST_GUILESS_MAIN(TestVersionRecord)
#include "tst_versionrecord_win.moc"
