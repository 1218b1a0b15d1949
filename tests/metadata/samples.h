#pragma once

#include <tavex/SMetaBool>
#include <tavex/SMetaByteArray>
#include <tavex/SMetaDateTime>
#include <tavex/SMetaJsonDocument>
#include <tavex/SMetaListBool>
#include <tavex/SMetaString>
#include <tavex/SMetaVersion>

#include <QJsonObject>

#include <memory>
#include <typeinfo>
#include <vector>

/// \file
/// One value of every class, made alike in the test and in the plug-in.

/// Each type of number and what the names of its classes end in.
#define FOR_EACH_NUMBER(DO)                                                                        \
    DO(qint8, Int8)                                                                                \
    DO(quint8, UInt8)                                                                              \
    DO(qint16, Int16)                                                                              \
    DO(quint16, UInt16)                                                                            \
    DO(qint32, Int32)                                                                              \
    DO(quint32, UInt32)                                                                            \
    DO(qint64, Int64) DO(quint64, UInt64) DO(float, Single) DO(double, Double) DO(bool, Bool)

namespace Sample {

/// Makes the abstract class \a Base one that an application could use.
template <typename Base>
class Own : public Base
{
public:
    using Base::Base;
    [[nodiscard]] Own *clone() const override { return new Own(*this); }
    [[nodiscard]] quint64 id() const override { return typeid(Own).hash_code(); }
};

using Values = std::vector<std::unique_ptr<Quorvex::Interfaces::IMetadata>>;

inline Values values()
{
    using namespace Quorvex;
    Values all;
#define ADD_VALUES(T, Name)                                                                        \
    all.emplace_back(new SMeta##Name(T(1)));                                                       \
    all.emplace_back(new SMetaList##Name(QList<T>{T(0), T(1)}));
    FOR_EACH_NUMBER(ADD_VALUES)
    all.emplace_back(new SMetaVersion(SVersion(1, 2, 3)));
    all.emplace_back(new Own<SMetaString>(QStringLiteral("text")));
    all.emplace_back(new Own<SMetaDateTime>(QDateTime::fromSecsSinceEpoch(0)));
    all.emplace_back(new Own<SMetaByteArray>(QByteArray("abc")));
    all.emplace_back(new Own<SMetaJsonDocument>(QJsonDocument(QJsonObject())));
    return all;
}

} // namespace Sample
