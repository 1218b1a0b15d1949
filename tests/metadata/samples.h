#pragma once

#include <tavex/SMetaBool>
#include <tavex/SMetaByteArray>
#include <tavex/SMetaDateTime>
#include <tavex/SMetaJsonDocument>
#include <tavex/SMetaListBool>
#include <tavex/SMetaString>
#include <tavex/SMetaVersion>

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>
#include <typeinfo>
#include <vector>

/// \file
/// One value of every class, made alike in the test and in the plug-in.

namespace Sample {

/// Makes the abstract class \a Base one that an application could use.
template <typename Base>
class Own : public Base
{
public:
    using Base::Base;
    [[nodiscard]] Own *clone() const override { return new Own(*this); }
    [[nodiscard]] quint64 id() const override { return uniqueId(); }
    [[nodiscard]] static quint64 uniqueId() { return typeid(Own).hash_code(); }
};

class Remark : public Quorvex::SMetaString
{
public:
    using SMetaString::SMetaString;
    [[nodiscard]] Remark *clone() const override { return new Remark(*this); }
    [[nodiscard]] quint64 id() const override { return typeid(Remark).hash_code(); }
};

using Values = std::vector<std::unique_ptr<Quorvex::Interfaces::IMetadata>>;

inline Values values()
{
    using namespace Quorvex;
    Values all;
    all.emplace_back(new SMetaInt8(-8));
    all.emplace_back(new SMetaUInt8(8));
    all.emplace_back(new SMetaInt16(-16));
    all.emplace_back(new SMetaUInt16(16));
    all.emplace_back(new SMetaInt32(-32));
    all.emplace_back(new SMetaUInt32(32));
    all.emplace_back(new SMetaInt64(-64));
    all.emplace_back(new SMetaUInt64(64));
    all.emplace_back(new SMetaSingle(1.5F));
    all.emplace_back(new SMetaDouble(2.5));
    all.emplace_back(new SMetaBool(true));
    all.emplace_back(new SMetaListInt8(QList<qint8>{1, 2}));
    all.emplace_back(new SMetaListUInt8(QList<quint8>{1, 2}));
    all.emplace_back(new SMetaListInt16(QList<qint16>{1, 2}));
    all.emplace_back(new SMetaListUInt16(QList<quint16>{1, 2}));
    all.emplace_back(new SMetaListInt32(QList<qint32>{1, 2}));
    all.emplace_back(new SMetaListUInt32(QList<quint32>{1, 2}));
    all.emplace_back(new SMetaListInt64(QList<qint64>{1, 2}));
    all.emplace_back(new SMetaListUInt64(QList<quint64>{1, 2}));
    all.emplace_back(new SMetaListSingle(QList<float>{1, 2}));
    all.emplace_back(new SMetaListDouble(QList<double>{1, 2}));
    all.emplace_back(new SMetaListBool(QList<bool>{true, false}));
    all.emplace_back(new SMetaVersion(SVersion(1, 2, 3)));
    all.emplace_back(new Remark(QStringLiteral("text")));
    all.emplace_back(new Own<SMetaDateTime>(QDateTime::fromSecsSinceEpoch(0)));
    all.emplace_back(new Own<SMetaByteArray>(QByteArray("abc")));
    all.emplace_back(new Own<SMetaJsonDocument>(QJsonDocument(QJsonObject())));
    return all;
}

} // namespace Sample
