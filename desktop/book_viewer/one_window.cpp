#include "one_window.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

// A window that does not answer is given up before the student wonders.
constexpr int milliseconds_to_connect = 500;
constexpr int milliseconds_to_answer = 2'000;
constexpr qint64 longest_line = 32;
const QByteArray answer = "turned\n";

// Two ways of writing a path are one book; and addresses are short.
QString name_of(const QString& book) {
  const QFileInfo file(book);
  const QString path = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
  const QByteArray mark = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
  return u"practice-exam-book-"_s + QString::fromLatin1(mark.toHex().first(16));
}

}  // namespace

OneWindow::OneWindow(const QString& folder, const QString& book) {
  if (!folder.isEmpty()) address_ = QDir(folder).absoluteFilePath(name_of(book));
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { receive(); });
}

QString OneWindow::folder_of_user() {
  return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

bool OneWindow::hand_over(int page) const {
  if (address_.isEmpty()) return false;
  QLocalSocket socket;
  socket.connectToServer(address_);
  if (!socket.waitForConnected(milliseconds_to_connect)) return false;
  socket.write(QByteArray::number(page) + '\n');
  while (!socket.canReadLine()) {
    if (!socket.waitForReadyRead(milliseconds_to_answer)) return false;
  }
  return socket.readLine() == answer;
}

bool OneWindow::listen(std::function<void(int page)> turn_to) {
  if (address_.isEmpty()) return false;
  turn_to_ = std::move(turn_to);
  if (server_.listen(address_)) return true;
  if (server_.serverError() != QAbstractSocket::AddressInUseError) return false;
  // What a viewer that was killed left behind.
  QLocalServer::removeServer(address_);
  return server_.listen(address_);
}

void OneWindow::receive() {
  while (QLocalSocket* socket = server_.nextPendingConnection()) {
    socket->setReadBufferSize(longest_line);
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    const auto read = [this, socket] {
      if (!socket->canReadLine()) {
        if (socket->bytesAvailable() >= longest_line) socket->abort();
        return;
      }
      bool is_number = false;
      const int page = socket->readLine().trimmed().toInt(&is_number);
      if (is_number) {
        turn_to_(page);
        socket->write(answer);
      }
      socket->disconnectFromServer();
    };
    QObject::connect(socket, &QLocalSocket::readyRead, socket, read);
    read();
  }
}

}  // namespace practice::desktop
