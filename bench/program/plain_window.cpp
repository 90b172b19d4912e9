/// korvanta-plain-window WIDTH HEIGHT: a Qt program whose one window has the same kinds of controls
/// as the main window, as the toolkit draws them, and a socket: the least that such a window costs.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStringListModel>
#include <QTcpSocket>
#include <QVBoxLayout>
#include <cstdlib>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 3) {
    return 2;
  }
  QMainWindow window;
  window.menuBar()->addMenu("&File")->addAction("E&xit");
  auto* const controls = new QWidget;
  auto* const column = new QVBoxLayout(controls);
  auto* const line = new QComboBox;
  line->setEditable(true);
  auto* const list = new QListView;
  list->setModel(new QStringListModel({"Marlow", "Aster"}, list));
  QWidget* const all[] = {new QLabel("Tick"), new QAbstractScrollArea, list, line,
                          new QPushButton("Send")};
  for (QWidget* const control : all) {
    column->addWidget(control);
  }
  window.setCentralWidget(controls);
  window.setFixedSize(std::atoi(argv[1]), std::atoi(argv[2]));
  QTcpSocket socket;
  socket.connectToHost("127.0.0.1", 1);
  window.show();
  return QApplication::exec();
}
