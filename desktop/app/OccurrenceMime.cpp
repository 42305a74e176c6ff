#include "desktop/app/OccurrenceMime.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

constexpr const char* kMimeType = "application/x-korvo-occurrences";

}  // namespace

std::unique_ptr<QMimeData> DragOccurrences(const std::vector<OccurrenceKey>& occurrences) {
  // One list of texts for each: the product, then the instances from the root part down.
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  for (const OccurrenceKey& one : occurrences) {
    QStringList texts{ToQt(one.product)};
    for (const std::string& instance : one.instancePath) texts << ToQt(instance);
    out << texts;
  }
  auto data = std::make_unique<QMimeData>();
  data->setData(kMimeType, bytes);
  return data;
}

std::vector<OccurrenceKey> DraggedOccurrences(const QMimeData& data) {
  std::vector<OccurrenceKey> occurrences;
  const QByteArray bytes = data.data(kMimeType);
  for (QDataStream in(bytes); !in.atEnd();) {
    QStringList texts;
    in >> texts;
    if (in.status() != QDataStream::Ok || texts.isEmpty()) return {};
    OccurrenceKey one{texts.takeFirst().toStdString(), {}};
    for (const QString& instance : texts) one.instancePath.push_back(instance.toStdString());
    occurrences.push_back(std::move(one));
  }
  return occurrences;
}

QStringList OccurrenceMimeTypes() { return {kMimeType}; }

}  // namespace desktop
