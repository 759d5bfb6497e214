put tmp_asd/left/over
enqueue 1 1001
repeat 0 49
= 2 Request Map Empty
= 2 dequeueAll:i ={n} ,front =0, rear =0, count = 50
end
= 2 add request fwkID:1<==>chiID:1001<==>index:1
insert 1001 501 1
= 2 iFromCamx:fwkID:1<==>chiId:1001<==>camxID:501<==>index:1
repeat 2 49
enqueue {n} {n+1000}
= 2 Request Map Not FULL for fwkID:{n-1}
= 2 add request fwkID:{n}<==>chiID:{n+1000}<==>index:{n}
insert {n+1000} {n+500} {n%4}
= 2 iFromCamx:fwkID:{n}<==>chiId:{n+1000}<==>camxID:{n+500}<==>index:{n}
end
enqueue 50 1050
= 2 add request fwkID:50<==>chiID:1050<==>index:0
insert 1050 550 2
= 2 iFromCamx:fwkID:50<==>chiId:1050<==>camxID:550<==>index:0
repeat 51 130
enqueue {n} {n+1000}
= 2 dequeue:fwkID:{n-50}<==>chi:{n+950}<==>camx:{n+450}----camid:{n-50%4} imageName: new frontId:{n-49%50}
= 6 Error deleting directory:/data/vendor/camera/tmp/RequestID[{n+450}]_camId[{n-50%4}].
= 2 add request fwkID:{n}<==>chiID:{n+1000}<==>index:{n%50}
insert {n+1000} {n+500} {n%4}
= 2 iFromCamx:fwkID:{n}<==>chiId:{n+1000}<==>camxID:{n+500}<==>index:{n%50}
end
insert 1081 7 5
= 2 iFromCamx:fwkID:81<==>chiId:1081<==>camxID:7<==>index:31
insert 1080 7 5
insert 1099 7 5
= 2 iFromCamx:fwkID:99<==>chiId:1099<==>camxID:7<==>index:49
slots
repeat 100 130
= slot {n-100}: fwk {n} chi {n+1000} image '' index 0 camx {n%4}:{n+500}
end
= slot 31: fwk 81 chi 1081 image '' index 0 camx 1:581 5:7
repeat 82 98
= slot {n-50}: fwk {n} chi {n+1000} image '' index 0 camx {n%4}:{n+500}
end
= slot 49: fwk 99 chi 1099 image '' index 0 camx 3:599 5:7
files
= tmp_asd/
