(enqueue 1 11)
(enqueue 2 12)
(insert 11 70 0)
(insert 11 72 2)
(insert 11 75 5)
(name IMG 1)
put IMG/taken
put tmp/RequestID[70]_camId[0]/a
put tmp/RequestID[72]_camId[2]/nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn
(dequeue)
dequeue
= 2 dequeue:fwkID:1<==>chi:11<==>camx:70----camid:0 imageName:IMG new frontId:2
= 3 move_file from :/data/vendor/camera/tmp/RequestID[70]_camId[0] to /data/vendor/camera/IMG for fwkID:1<==>chi:11<==>camx:70
= 6 move_file:/data/vendor/camera/tmp/RequestID[70]_camId[0]/a:/data/vendor/camera/IMG/a
= 2 dequeue:fwkID:1<==>chi:11<==>camx:72----camid:2 imageName:IMG new frontId:2
= 3 move_file from :/data/vendor/camera/tmp/RequestID[72]_camId[2] to /data/vendor/camera/IMG for fwkID:1<==>chi:11<==>camx:72
= 6 move_file:/data/vendor/camera/tmp/RequestID[72]_camId[2]/nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn:/data/vendor/camera/IMG/nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn
= 2 dequeue:fwkID:1<==>chi:11<==>camx:75----camid:5 imageName:IMG new frontId:2
= 3 move_file from :/data/vendor/camera/tmp/RequestID[75]_camId[5] to /data/vendor/camera/IMG for fwkID:1<==>chi:11<==>camx:75
= 6 Failed to open source directory
dequeue
= 2 Request Map Empty
slots
files
= IMG/
= IMG/a has tmp/RequestID[70]_camId[0]/a
= IMG/nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn has tmp/RequestID[72]_camId[2]/nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn
= IMG/taken
= tmp/
(enqueue 3 13)
(insert 12 501 1)
put tmp/RequestID[501]_camId[1]/a
dequeue
= 2 dequeue:fwkID:2<==>chi:12<==>camx:501----camid:1 imageName: new frontId:3
= 3 Directory:/data/vendor/camera/tmp/RequestID[501]_camId[1] deleted successfully.
files
= IMG/
= IMG/a has tmp/RequestID[70]_camId[0]/a
= IMG/nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn has tmp/RequestID[72]_camId[2]/nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn
= IMG/taken
= tmp/
