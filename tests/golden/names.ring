(enqueue 5 11)
(enqueue 900 11)
(enqueue 5 11)
(enqueue 7 11)
offset 1000
name 1005nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here 1 1005
= 2 not find fwkNum:1 in map, imageName:1005nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here,add for tmp requestIndex:0, m_OffPreReqStart:1000
= 2 find fwkNum:1005 imageName:1005nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here requestIndex:1 m_OffPreReqStart:1000
slots
= slot 3: fwk 5 chi 11 image '1005nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 1 camx
= parked 0: fwk 1 chi 0 image '1005nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 0 camx
files
offset 1000
name 900nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here 1 900
= 2 not find fwkNum:1 in map, imageName:900nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here,add for tmp requestIndex:0, m_OffPreReqStart:1000
= 2 find fwkNum:900 imageName:900nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here requestIndex:1 m_OffPreReqStart:1000
slots
= slot 2: fwk 900 chi 11 image '900nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 1 camx
= slot 3: fwk 5 chi 11 image '1005nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 1 camx
= parked 0: fwk 1 chi 0 image '900nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 0 camx
files
offset 7
name 7nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here 1 7
= 2 not find fwkNum:1 in map, imageName:7nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here,add for tmp requestIndex:0, m_OffPreReqStart:7
= 2 find fwkNum:7 imageName:7nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here requestIndex:1 m_OffPreReqStart:7
slots
= slot 2: fwk 900 chi 11 image '900nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 1 camx
= slot 3: fwk 5 chi 11 image '1005nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 1 camx
= slot 4: fwk 7 chi 11 image '7nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncu' index 1 camx
= parked 0: fwk 1 chi 0 image '7nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncu' index 0 camx
files
offset 4294967303
name 5nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here 1 5
= 2 not find fwkNum:1 in map, imageName:5nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here,add for tmp requestIndex:0, m_OffPreReqStart:7
= 2 find fwkNum:5 imageName:5nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncut_here requestIndex:1 m_OffPreReqStart:7
slots
= slot 2: fwk 900 chi 11 image '900nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn' index 1 camx
= slot 3: fwk 5 chi 11 image '5nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncu' index 1 camx
= slot 4: fwk 7 chi 11 image '7nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncu' index 1 camx
= parked 0: fwk 1 chi 0 image '5nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnncu' index 0 camx
files
