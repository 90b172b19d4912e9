#include "ui/desktop/qt_client_socket.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QTcpSocket>

#include "ui/desktop/native_socket.h"

namespace korvanta {
namespace {

constexpr std::chrono::milliseconds kDrainLimit{1000};

/// Also the size of the toolkit's buffer: a peer that sends faster than we read has to wait.
constexpr qint64 kReadLimit = static_cast<qint64>(BlockAssembler::kBlockLimit);

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace

QtClientSocket::QtClientSocket() {
  for (QTimer* timer : {&next_, &remainder_deadline_}) {
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, timer, [this] { RaiseNext(); });
  }
}

QtClientSocket::~QtClientSocket() { QtClientSocket::Close(); }

void QtClientSocket::Close() {
  next_.stop();
  remainder_deadline_.stop();
  if (QTcpSocket* socket = attempt_.socket; socket != nullptr) {
    socket->disconnect();
    socket->abort();
    socket->deleteLater();
  }
  attempt_ = {};
}

void QtClientSocket::Connect(const std::string& host, std::uint16_t port) {
  Close();
  // Owned by the timer, so that abandoned sockets do not outlive this object either.
  auto* socket = new QTcpSocket(&next_);
  attempt_.socket = socket;
  socket->setProxy(QNetworkProxy::NoProxy);
  socket->setReadBufferSize(kReadLimit);
  // Some of these are emitted within connectToHost, so they only record what happened.
  QObject::connect(socket, &QTcpSocket::connected, &next_, [this] { Established(); });
  QObject::connect(socket, &QTcpSocket::readyRead, &next_, [this] { next_.start(); });
  QObject::connect(socket, &QTcpSocket::disconnected, &next_, [this] { Ended(); });
  QObject::connect(
      socket, &QTcpSocket::errorOccurred, &next_, [this](QAbstractSocket::SocketError error) {
        if (!attempt_.is_established) {
          return;
        }
        // The toolkit discards its read buffer as soon as a write fails.
        const auto now = std::chrono::steady_clock::now();
        attempt_.blocks.Add(View(attempt_.socket->readAll()), now);
        attempt_.blocks.Add(native_socket::ReadPending(attempt_.socket->socketDescriptor()), now);
        // With bytes still to send, the toolkit would first wait for a peer that no
        // longer reads.
        if (error == QAbstractSocket::RemoteHostClosedError) {
          Ended();
        }
      });
  const QHostAddress address(QString::fromStdString(host));
  if (address.protocol() == QAbstractSocket::IPv4Protocol) {
    socket->connectToHost(address, port);
  }
}

void QtClientSocket::Send(std::string_view text) {
  if (IsConnected()) {
    attempt_.socket->write(text.data(), static_cast<qint64>(text.size()));
  }
}

bool QtClientSocket::IsConnected() const {
  return attempt_.is_announced && !attempt_.is_over &&
         attempt_.socket->state() == QAbstractSocket::ConnectedState;
}

void QtClientSocket::Drain() {
  if (IsConnected()) {
    native_socket::FinishSending(*attempt_.socket, kDrainLimit);
  }
  Close();
}

void QtClientSocket::Established() {
  attempt_.is_established = true;
  attempt_.socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  native_socket::SetKeepAlive(attempt_.socket->socketDescriptor());
  next_.start();
}

void QtClientSocket::Ended() {
  attempt_.is_over = attempt_.is_established;
  next_.start();
}

void QtClientSocket::RaiseNext() {
  if (attempt_.socket == nullptr || !attempt_.is_established || is_raising_) {
    return;
  }
  if (!attempt_.is_announced) {
    attempt_.is_announced = true;
    Raise(on_connected);
    return;
  }
  const auto now = std::chrono::steady_clock::now();
  if (!attempt_.is_over && !attempt_.blocks.HasBlock()) {
    attempt_.blocks.Add(View(attempt_.socket->read(kReadLimit)), now);
  }
  if (const std::string block = attempt_.blocks.Take(now, attempt_.is_over); !block.empty()) {
    Raise(on_data_arrival, std::string_view(block));
  } else if (attempt_.is_over) {
    Close();
    Raise(on_closed);
  } else if (const auto deadline = attempt_.blocks.RemainderDeadline()) {
    remainder_deadline_.start(std::chrono::ceil<std::chrono::milliseconds>(*deadline - now));
  }
}

template <typename... Arguments>
void QtClientSocket::Raise(const std::function<void(Arguments...)>& event, Arguments... arguments) {
  is_raising_ = true;
  if (event) {
    event(arguments...);
  }
  is_raising_ = false;
  next_.start();
}

}  // namespace korvanta
