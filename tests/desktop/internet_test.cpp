// The one blocking get, against a server of the test's own.
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>

#include <gtest/gtest.h>

#include "platform_qt/qt_platform.h"

namespace practice::desktop {
namespace {

using namespace std::chrono_literals;

class InternetTest : public testing::Test {
 protected:
  void SetUp() override {
    internet.time_limit = 500ms;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
      QTcpSocket* student = server.nextPendingConnection();
      QObject::connect(student, &QTcpSocket::readyRead, student, [this, student] {
        request += student->readAll();
        if (request.endsWith("\r\n\r\n") && answer) answer(*student);
      });
    });
  }

  std::string get() {
    return internet.get("http://127.0.0.1:" + std::to_string(server.serverPort()) + "/Version.txt");
  }
  static void send(QTcpSocket& student, const QByteArray& status, const QByteArray& body) {
    student.write("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                  "\r\nConnection: close\r\n\r\n" + body);
    student.disconnectFromHost();
  }

  QtInternet internet;
  QTcpServer server;
  QByteArray request;
  std::function<void(QTcpSocket&)> answer;
};

TEST_F(InternetTest, TheTextAtAnAddressIsFetched) {
  answer = [](QTcpSocket& student) { send(student, "200 OK", "\"5.3\"\r\n"); };
  EXPECT_EQ(get(), "\"5.3\"\r\n");
  EXPECT_TRUE(request.startsWith("GET /Version.txt "));
}

TEST_F(InternetTest, AnAddressThatIsNotThereIsNoText) {
  answer = [](QTcpSocket& student) { send(student, "404 Not Found", "<html>no such page</html>"); };
  EXPECT_EQ(get(), "");
}

TEST_F(InternetTest, ASilentServerIsLeftWhenTheTimeIsUp) {
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(get(), "");
  EXPECT_GE(timer.elapsed(), 490);
  EXPECT_LT(timer.elapsed(), 5'000);
}

TEST_F(InternetTest, ASlowServerIsLeftInTheMiddle) {
  answer = [](QTcpSocket& student) {
    student.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n5.3");
  };
  EXPECT_EQ(get(), "");
}

TEST_F(InternetTest, AnEndlessAnswerIsCutOff) {
  internet.time_limit = 10s;
  answer = [](QTcpSocket& student) {
    student.write("HTTP/1.1 200 OK\r\n\r\n");
    QObject::connect(&student, &QTcpSocket::bytesWritten, &student,
                     [&student] { student.write(QByteArray(16'384, '9')); });
  };
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(get(), "");
  EXPECT_LT(timer.elapsed(), 5'000);
}

TEST_F(InternetTest, AServerThatRefusesIsNoText) {
  const auto port = server.serverPort();
  server.close();
  EXPECT_EQ(internet.get("http://127.0.0.1:" + std::to_string(port) + "/"), "");
  EXPECT_EQ(internet.get("no address"), "");
}

}  // namespace
}  // namespace practice::desktop
